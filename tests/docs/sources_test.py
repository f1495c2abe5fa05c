"""The @retval lines of oruSdk.h against the sources: the codes that stand in an operation and in what it calls.

It reads text, not C++: a definition starts at the margin and ends with a brace at the margin, as clang-format leaves
them, and a name with a parenthesis behind it is called, or handed on to be called. What is not handed on is listed.
"""
import re
import sys
import unittest
from pathlib import Path

SOURCES = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(SOURCES / "scripts"))
import header  # noqa: E402

SDK = header.read(SOURCES / "include/oruSdk.h")
CODES = {c.name: c.length for c in SDK.constants if c.name.startswith("ORUSDK_RC_") and c.name != "ORUSDK_RC_COUNT"}
STATUS_AS_CODE = "4294967295"

# Not handed on: by which definition, the codes, and why.
STAYS = {
    "getOption": {"47"},  # asks for no range
    "openRadioFile": {"47"},
    "oruSdkGetDot11MacParam": {"11", "12", "13", "14"},  # getters look at no range
    "oruSdkGetBeaconParam": {"9", "10"},
    "oruSdkCommitRadio": {"48"},  # a notice that can't be sent is only logged
    "notifyAa": {"48"},
    "oruSdkCommitAll": {"48"},
    "getRadioProductBand": {"1", "48"},  # takes a failure for an answer
    "buildRegChannelInfo": {"1", "7", "42", "48"},  # no channel is listed then
    "checkChannel14": {"1", "48"},  # checkProduct() has asked by then, and nobody asks twice
}


def definitions(path):
    """What a file defines at the margin: name -> text, without comments and strings."""
    text = re.sub(r'//[^\n]*|"(?:[^"\\\n]|\\.)*"', "", path.read_text().replace('extern "C" ', ""))
    found = {}
    block = ""
    for line in map(str.rstrip, text.splitlines()):
        if not block and not re.match(r"(?!using|namespace|extern|static_assert)[a-z]\w+ |\[", line):
            continue
        block += line + "\n"
        if not line.startswith("}") and ("{" in block or not line.endswith(";")):
            continue
        name = re.match(r"(?:struct|class) (\w+)|[^({=]*?(\w+)(?:\[\w*\])?(?=\(| = \{)", block)
        if name and "{" in block:
            found[name[1] or name[2]] = found.get(name[1] or name[2], "") + block
        block = ""
    return found


ROOMS = ("core", "radio", "bss", "wps", "status")
FILES = {path: definitions(path) for room in ROOMS for path in sorted(SOURCES.glob(f"src/{room}/*.[ch]pp"))}
DECLARED = set(re.findall(r"\b(\w+)\(", "".join(path.read_text() for path in FILES if path.suffix == ".hpp")))
DECLARED |= {operation.name for operation in SDK.operations}
SHARED = {name: path for path, found in FILES.items() for name in found if name in DECLARED}


def reachable(name, path, callers=(), stays=STAYS):
    """The codes that a definition can return, and what it calls."""
    path = path if name in FILES[path] else SHARED.get(name)
    if path is None or name in callers:
        return set()
    text = FILES[path][name]
    codes = {CODES[code] for code in re.findall(r"ORUSDK_RC_\w+", text)}
    codes |= {STATUS_AS_CODE} if "static_cast<uint32_t>(status)" in text else set()
    for used in set(re.findall(r"\b(\w+)(?=[()])|\b(k[A-Z]\w+)", text)):
        codes |= reachable(used[0] or used[1], path, (*callers, name), stays)
    return codes - stays.get(name, set())


class EveryOperation(unittest.TestCase):
    def test_names_the_codes_that_its_source_returns(self):
        complaints = []
        for operation in SDK.operations:
            if not operation.retvals or operation.name == "isHex":
                continue  # these return no code
            named = {value for value, _ in operation.retvals}
            found = reachable(operation.name, SHARED[operation.name]) | {"0"}
            complaints += [f"{operation.name} does not name {code}" for code in sorted(found - named)]
            complaints += [f"{operation.name} never returns {code}" for code in sorted(named - found)]
        self.assertEqual([], complaints)

    def test_needs_each_row_of_what_stays(self):
        for name, codes in STAYS.items():
            path = next(path for path, found in FILES.items() if name in found)
            self.assertLessEqual(codes, reachable(name, path, stays={}), name)


if __name__ == "__main__":
    unittest.main()
