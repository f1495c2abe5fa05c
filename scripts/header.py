"""Reads a public header: its constants, records, variables and operations, each with its comment.

It knows the form in which include/ is written, not C: a declaration that it does not understand is an error.
"""
import re
from dataclasses import dataclass, field


@dataclass
class Declaration:
    name: str
    type: str  # of what it returns or holds, such as "const char *"
    length: str = ""  # of an array, as it is written; "" for none
    comment: str = ""


@dataclass
class Record:
    name: str
    comment: str
    fields: list[Declaration]


@dataclass
class Operation:
    name: str
    type: str
    parameters: list[Declaration]
    comment: str
    section: str
    params: dict[str, str] = field(default_factory=dict)  # @param lines
    retvals: list[tuple[str, str]] = field(default_factory=list)  # @retval lines
    returns: str = ""  # @return line
    partners: list[str] = field(default_factory=list)  # @see line
    text: str = ""  # what stands before them


@dataclass
class Header:
    constants: list[Declaration] = field(default_factory=list)  # length holds the value
    handles: list[str] = field(default_factory=list)  # records that only the library knows
    records: list[Record] = field(default_factory=list)
    variables: list[Declaration] = field(default_factory=list)
    operations: list[Operation] = field(default_factory=list)


_DECLARED = re.compile(r"((?:const )?(?:struct )?\w+ ?[\s\*]*(?:const )?\*?(?:const )?)(\w+)(?:\[(\w*)\])?$")
_COMMENT = r"/\*\*(?!<)(?P<comment>(?:(?!\*/).)*)\*/\s*"
_PIECES = re.compile(
    r"/\* ---- (?P<section>[^\n]*?)[: ]+-+"
    r"|" + _COMMENT + r"(?:"
    r"typedef struct (?P<record>\w+) \{(?P<fields>[^}]*)\} \w+;"
    r"|typedef struct \w+ (?P<handle>\w+);"
    r"|enum \{(?P<enum>[^}]*)\};"
    r"|#define (?P<define>\w+) (?P<value>[^\n]+)"
    r"|\w+_API (?P<declared>[^;]+);)"
    r"|(?P<bare>\bORU\w+_API (?!__attribute__)[^;]+;)"
    r"|enum \{(?P<bare_enum>[^}]*)\};",
    re.S)


def plain(comment):
    """The words of a comment, in one line."""
    return " ".join(line.strip().lstrip("*").strip() for line in comment.splitlines()).strip()


def _declaration(text, comment=""):
    text = " ".join(text.split())
    match = _DECLARED.match(text)
    if not match:
        raise ValueError(f"no declaration: {text}")
    return Declaration(match[2], match[1].strip().replace(" *", "*").replace("*", " *", 1), match[3] or "",
                       plain(comment))


def _fields(text):
    pattern = re.compile(r"([^;/]+);\s*(?:/\*\*<((?:(?!\*/).)*)\*/)?", re.S)
    return [_declaration(match[1], match[2] or "") for match in pattern.finditer(text)]


def _enumerators(text):
    pattern = re.compile(r"(\w+)\s*=\s*(\w+)\s*,?\s*(?:/\*\*<((?:(?!\*/).)*)\*/)?", re.S)
    return [Declaration(match[1], "enum", match[2], plain(match[3] or "")) for match in pattern.finditer(text)]


def _parameters(text):
    if text.strip() == "void":
        return []
    found = []
    for parameter in re.split(r",(?![^(]*\))", text):
        if parameter.strip() == "...":
            continue
        callback = re.search(r"\(\*(\w+)\)\(.*\)", parameter, re.S)
        found.append(Declaration(callback[1], "callback") if callback else _declaration(parameter))
    return found


def _read_comment(operation):
    """Takes the @ lines out of an operation's comment."""
    lines = re.split(r"\s@(?=param|retval|return|see)", " " + plain(operation.comment))
    operation.text = lines[0].strip()
    for line in lines[1:]:
        kind, _, rest = line.partition(" ")
        rest = rest.strip()
        if kind == "param":
            name, _, words = rest.partition(" ")
            operation.params[name] = words.strip()
        elif kind == "retval":
            value, _, words = rest.partition(" ")
            operation.retvals.append((value, words.strip()))
        elif kind == "return":
            operation.returns = rest
        else:
            operation.partners += re.findall(r"\w+", rest)


def _read_declared(header, text, comment, section):
    text = re.sub(r"\s*ORUASF_PRINTF\(\d+, \d+\)$", "", text.strip())
    function = re.match(r"([\w\s]+?[\s\*]+)(\w+)\((.*)\)$", text, re.S)
    if function and "=" not in text:
        kind = " ".join(function[1].split())
        operation = Operation(function[2], kind, _parameters(function[3]), comment, section)
        _read_comment(operation)
        header.operations.append(operation)
    else:
        header.variables.append(_declaration(text.removeprefix("extern "), comment))


def read(path):
    """The Header of a file."""
    with open(path, encoding="utf-8") as file:
        source = file.read()
    header = Header()
    section = ""
    for piece in _PIECES.finditer(source):
        comment = piece["comment"] or ""
        if piece["section"]:
            section = piece["section"].strip()
        elif piece["record"]:
            header.records.append(Record(piece["record"], plain(comment), _fields(piece["fields"])))
        elif piece["handle"]:
            header.handles.append(piece["handle"])
        elif piece["enum"] or piece["bare_enum"]:
            header.constants += _enumerators(piece["enum"] or piece["bare_enum"])
        elif piece["define"]:
            header.constants.append(Declaration(piece["define"], "#define", piece["value"], plain(comment)))
        else:
            declared = piece["declared"] or piece["bare"].split("_API ", 1)[1].rstrip(";")
            _read_declared(header, declared, comment, section)
    return header
