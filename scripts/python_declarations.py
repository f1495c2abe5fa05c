"""Writes bindings/python/orusdk/declarations.py: the public header as ctypes sees it.

python_declarations.py [FILE]: prints the module, or writes it to a file.
"""
import re
import sys
from pathlib import Path

import header

SOURCES = Path(__file__).resolve().parents[1]
NUMBERS = {f"{sign}int{bits}_t": f"c_{sign}int{bits}" for sign in ("", "u") for bits in (8, 16, 32)}
NUMBERS["char"] = "c_char"


def value(constant):
    return int(re.fullmatch(r"(\w+?)u?", constant.length)[1], 0)


def base(name):
    return NUMBERS.get(name, name)


def pointed(kind, writable_text):
    """The ctypes type of a C type; text that the operation writes needs a buffer, not a bytes object."""
    if kind == "void":
        return "None"
    constant = kind.startswith("const ")
    name, stars = re.fullmatch(r"(?:const )?(\w+) ?(\**)", kind).groups()
    if name == "char" and stars:
        text = "POINTER(c_char)" if stars == "*" and writable_text and not constant else "c_char_p"
        return text if stars == "*" else f"POINTER({text})"
    return f"POINTER({base(name)})" if stars else base(name)


def field(declared, constants):
    kind = pointed(declared.type, writable_text=False)
    if declared.length:
        kind += f" * {constants.get(declared.length, declared.length)}"
    return f'        ("{declared.name}", {kind}),'


def parameter(declared):
    return f"POINTER({base(declared.type)})" if declared.length else pointed(declared.type, writable_text=True)


def variable(declared):
    kind = "c_char_p" if declared.type.startswith("const char") else base(declared.type)
    return f'    "{declared.name}": {kind}{" * " + declared.length if declared.length else ""},'


def module(public):
    constants = {constant.name: value(constant) for constant in public.constants}
    lines = ['"""The public header as ctypes sees it: constants, records, operations.', "",
             "Made by scripts/python_declarations.py from include/oruSdk.h; a test compares.", '"""',
             "from ctypes import (POINTER, Structure, c_char, c_char_p, c_int32, c_uint8, c_uint16, c_uint32)", ""]
    lines += [f"{name} = {number}" for name, number in constants.items()]
    for record in public.records:
        lines += ["", "", f"class {record.name}(Structure):",
                  f'    """{record.comment.split(". ")[0].rstrip(".")}."""', "    _fields_ = ["]
        lines += [field(declared, constants) for declared in record.fields]
        lines += ["    ]"]
    lines += ["", "", "# Each operation: what it returns, and what it takes.", "OPERATIONS = {"]
    for operation in public.operations:
        taken = ", ".join(parameter(declared) for declared in operation.parameters)
        lines.append(f'    "{operation.name}": ({pointed(operation.type, False)}, [{taken}]),')
    lines += ["}", "", "VARIABLES = {"] + [variable(declared) for declared in public.variables] + ["}"]
    return "\n".join(lines) + "\n"


def main():
    text = module(header.read(SOURCES / "include/oruSdk.h"))
    if len(sys.argv) > 1:
        Path(sys.argv[1]).write_text(text)
    else:
        sys.stdout.write(text)


if __name__ == "__main__":
    main()
