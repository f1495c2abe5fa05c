#!/usr/bin/env python3
"""Writes manual pages (mdoc) that no program writes itself.

man_pages.py sdk HEADER DATE      oruSdk(3), from the public header
man_pages.py asf HEADER DATE      oruAsf(3), from that of the support library
man_pages.py orusim PROGRAM DATE  orusim(1), from its --help
"""
import re
import subprocess
import sys


def escaped(word):
    word = word.replace("\\", "\\e")
    return word.replace("-", "\\-") if word.startswith("-") else word


def filled(text):
    """Lines of at most 78 letters; each sentence begins one."""
    lines, line = [], ""
    # Names of functions stand without (), which asks for markup.
    for word in map(escaped, re.sub(r"(\w)\(\)", r"\1", text).split()):
        if line and len(line) + len(word) > 76:
            lines.append(line)
            line = ""
        line += (" " if line else "") + word
        if re.search(r"[.?!][)'\"]*$", word):
            lines.append(line)
            line = ""
    return [("\\&" if each[0] in ".'" else "") + each for each in lines + [line] if each]


def head(name, section, date, summary):
    return ['.\\" Written by docs/man/man_pages.py; not meant to be edited.', f".Dd {date}",
            f".Dt {name.upper()} {section}", ".Os", ".Sh NAME", f".Nm {name}", f".Nd {summary}"]


def tagged(pairs):
    out = [".Bl -tag -width Ds"]
    for name, text in pairs:
        out += [".It Xo", ".Sy " + " ".join(map(escaped, name.split())), ".Xc"] + filled(text)
    return out + [".El"]


def see_also(*pages):
    return [".Sh SEE ALSO", *(f".Xr {page} ," for page in pages[:-1]), f".Xr {pages[-1]}"]


def sentence(text):
    text = text.strip()
    return text[:1].upper() + text[1:] + ("" if text.endswith(".") else ".")


# ---- oruSdk(3), oruAsf(3)

COMMENT = re.compile(r"/\*\*(.*?)\*/\s*", re.S)


def plain(comment):
    return re.sub(r"\n\s*\* ?", "\n", comment).strip()


def conventions(header):
    text = plain(COMMENT.search(header).group(1)).split("Conventions\n", 1)[1]
    return [" ".join(each.split()) for each in re.split(r"(?:^|\n)\s*\d+\. ", text) if each.strip()]


def codes(header):
    block = header[header.index("enum {"):]
    block = block[:block.index("};")]
    rows = re.findall(r"(ORUSDK_RC_\w+)\s*=\s*(\d+),?\s*/\*\*<(.*?)\*/", block, re.S)
    return [(f"{number} {name}", sentence(" ".join(plain(text).split()))) for name, number, text in rows]


def operations(section):
    """The functions of a section, with the first sentence of what each does."""
    for comment in COMMENT.finditer(section):
        declaration = re.match(r"ORU(?:SDK|ASF)_API\s+([^;=]*?)\b(\w+)\(", section[comment.end():])
        if declaration:
            text = " ".join(plain(comment.group(1)).split("\n@")[0].split())
            yield declaration.group(2), sentence(re.split(r"(?<=\.)\s", text)[0])


def sections(header):
    parts = re.split(r"/\* ---- (.*?) -{3,}[\s\S]*?\*/", header)[1:]
    return [(title.strip().split(":")[0], list(operations(body)))
            for title, body in zip(parts[::2], parts[1::2])]


def library_page(name, summary, text, header, date):
    out = head(name, "3", date, summary)
    out += [".Sh LIBRARY", f"lib{name} (\\-l{name})", ".Sh SYNOPSIS", f".In {name}.h", ".Sh DESCRIPTION"]
    out += filled(text) + [".Ss Conventions", ".Bl -enum"]
    for each in conventions(header):
        out += [".It"] + filled(each)
    out += [".El"]
    for title, functions in sections(header):
        if functions:
            out += [f".Ss {title}"] + tagged(functions)
    return out


def sdk_page(path, date):
    header = open(path, encoding="utf-8").read()
    out = library_page("oruSdk", "configuration and status of an access point",
                       "The library reads and changes the configuration of a dual-radio access point, and asks "
                       "its services for live status. The header says of each operation which fields it takes, "
                       "which codes it returns, and when it takes effect.", header, date)
    out += [".Sh RETURN VALUES"] + filled("A return code is 0 or one of these:") + tagged(codes(header))
    return out + see_also("oructl 1", "orusim 1", "oruAsf 3", "oructl-items 7")


def asf_page(path, date):
    header = open(path, encoding="utf-8").read()
    out = library_page("oruAsf", "dictionaries, messages and logging of an access point",
                       "The library serves the services of an access point, and liboruSdk. The header says of "
                       "each operation what it takes and gives, and when it fails.", header, date)
    return out + see_also("oruSdk 3")


# ---- orusim(1)

def entries(lines):
    """ "  --root DIR    text", and lines that go on with the text."""
    rows = []
    for line in lines:
        match = re.match(r"  (\S.*?)(?:  +(\S.*))?$", line)
        if match and not line.startswith(" " * 10):
            rows.append([match.group(1), match.group(2) or ""])
        elif line.strip() and rows:
            rows[-1][1] += " " + line.strip()
    return [(name, sentence(text)) for name, text in rows]


def orusim_page(program, date):
    text = subprocess.run([program, "--help"], capture_output=True, text=True, check=True).stdout
    options, commands = text.split("\nCommands:\n")
    summary = options.split("\n")[1]
    out = head("orusim", "1", date, "simulated access point")
    out += [".Sh SYNOPSIS", ".Nm", ".Op Ar option ...", ".Sh DESCRIPTION"] + filled(summary)
    out += [".Ss Options"] + tagged(entries(options.split("\n")[2:]))
    out += [".Ss Commands of \\-\\-control"] + tagged(entries(commands.split("\n")))
    out += [".Sh ENVIRONMENT"] + tagged([
        ("ORU_ROOT", "The folder of the access point, unless --root names one."),
        ("ORUSIM_FACTORY", "Where the factory files are, unless --factory says so."),
    ])
    out += [".Sh EXIT STATUS"] + tagged([
        ("0", "Done, or ended by a signal or a command."), ("1", "Failed."), ("2", "Wrong command line."),
    ])
    out += [".Sh EXAMPLES"] + filled("An access point in a folder of its own, and a station that joins it:")
    out += [".Bd -literal -offset indent -compact", "orusim \\-\\-root /tmp/ap \\-\\-init",
            "orusim \\-\\-root /tmp/ap &",
            "orusim \\-\\-root /tmp/ap \\-\\-control 'station add 0 02:00:00:00:00:01'",
            "orusim \\-\\-root /tmp/ap \\-\\-control quit", ".Ed"]
    return out + see_also("oructl 1", "oruSdk 3")


def main():
    write = {"sdk": sdk_page, "asf": asf_page, "orusim": orusim_page}.get(sys.argv[1]) if len(sys.argv) == 4 else None
    if write is None:
        sys.exit(__doc__)
    print("\n".join(write(sys.argv[2], sys.argv[3])))


main()
