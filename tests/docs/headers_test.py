"""The comments of the public headers: complete, and naming only what exists."""
import re
import sys
import unittest
from pathlib import Path

SOURCES = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(SOURCES / "scripts"))
import header  # noqa: E402

SDK = header.read(SOURCES / "include/oruSdk.h")
ASF = header.read(SOURCES / "include/oruAsf.h")
NAMES = {operation.name for operation in SDK.operations + ASF.operations}
CODES = {constant.length for constant in SDK.constants if constant.name.startswith("ORUSDK_RC_")}

# The status of liboruAsf that two getters hand on.
STATUS_AS_CODE = "4294967295"
FILES = ("/var/wsmDefaults", "/var/1x.conf", "/config/wsmSavedRadarDetectList")
FILE_CODES = {"7", "8", "25", "42"}


class Complains(unittest.TestCase):
    """Collects what is wrong, so that one run shows all of it."""

    def expect_none(self, complaints):
        self.assertEqual([], list(complaints))


class EveryOperation(Complains):
    def test_parser_finds_every_declaration(self):
        for name, found in (("oruSdk", SDK), ("oruAsf", ASF)):
            text = (SOURCES / f"include/{name}.h").read_text()
            exported = len(re.findall(r"^ORU\w+_API (?!__attribute__)", text, re.M))
            self.assertEqual(exported, len(found.operations) + len(found.variables), name)

    def test_says_what_it_does(self):
        self.expect_none(o.name for o in SDK.operations + ASF.operations
                         if not re.match(r"[A-Z].*[.)]", o.text))

    def test_explains_each_parameter_in_order(self):
        for operation in SDK.operations + ASF.operations:
            declared = [parameter.name for parameter in operation.parameters]
            self.assertEqual(declared, list(operation.params), operation.name)

    def test_explains_what_it_returns(self):
        self.expect_none(o.name for o in SDK.operations + ASF.operations
                         if (o.type == "void") == bool(o.retvals or o.returns))

    def test_gives_conditions_for_each_result(self):
        self.expect_none(f"{o.name} {value}" for o in SDK.operations + ASF.operations
                         for value, words in o.retvals if len(words) < 4)

    def test_sees_only_operations_that_exist(self):
        self.expect_none(f"{o.name}: {seen}" for o in SDK.operations + ASF.operations for seen in o.partners
                         if seen not in NAMES)


class EveryOperationOfTheSdk(Complains):
    def test_names_only_return_codes_that_exist(self):
        self.expect_none(f"{o.name} {value}" for o in SDK.operations for value, _ in o.retvals
                         if value not in CODES | {STATUS_AS_CODE})

    def test_names_each_return_code_once(self):
        self.expect_none(o.name for o in SDK.operations
                         if len({value for value, _ in o.retvals}) != len(o.retvals))

    def test_names_success_first(self):
        self.expect_none(o.name for o in SDK.operations
                         if o.retvals and o.retvals[0][0] != "0" and o.name != "isHex")

    def test_names_the_file_that_it_touches(self):
        def named(operation):
            words = operation.text + " ".join(operation.params.values())
            return any(file in words for file in FILES) or re.search(r"[Kk]eys (are those of|as in) oruSdk", words)
        self.expect_none(o.name for o in SDK.operations
                         if FILE_CODES & {value for value, _ in o.retvals} and not named(o)
                         and o.name != "oruSdkResetToBss")

    def test_names_the_keys_that_it_touches(self):
        self.expect_none(o.name for o in SDK.operations
                         if {"25", "42"} & {value for value, _ in o.retvals}
                         and not re.search(r'Keys? |[Kk]eys are those of|: "|key by key|(Sets|Reads) "', o.text))

    def test_says_when_a_change_takes_effect(self):
        self.expect_none(o.name for o in SDK.operations
                         if "8" in {value for value, _ in o.retvals}
                         and not re.search(r"Takes effect|takes? effect|at once|outlives a restart", o.text))

    def test_refuses_only_what_its_parameters_can_be(self):
        """A pointer that is checked is a code 2, and a code 2 needs a pointer."""
        self.expect_none(o.name for o in SDK.operations
                         if "2" in {value for value, _ in o.retvals}
                         and not any("*" in p.type or p.length for p in o.parameters))

    def test_names_the_fields_that_a_setter_reads(self):
        records = {record.name: record for record in SDK.records}
        complaints = []
        for operation in SDK.operations:
            for parameter in operation.parameters:
                record = records.get(parameter.type.removeprefix("const ").rstrip("* "))
                fields = [f.name for f in record.fields] if record else []
                words = operation.params.get(parameter.name, "")
                if fields and not re.search("receive|filled|entries|" + "|".join(fields), words):
                    complaints.append(operation.name)
        self.expect_none(complaints)


class EveryPair(Complains):
    def test_of_getter_and_setter_sees_its_partner(self):
        complaints = []
        operations = {operation.name: operation for operation in SDK.operations}
        for name, getter in operations.items():
            setter = operations.get(name.replace("oruSdkGet", "oruSdkSet", 1))
            if not name.startswith("oruSdkGet") or setter is None:
                continue
            if setter.name not in getter.partners:
                complaints.append(f"{name} does not see {setter.name}")
            if name not in setter.partners:
                complaints.append(f"{setter.name} does not see {name}")
        self.expect_none(complaints)

    def test_is_mutual(self):
        operations = {operation.name: operation for operation in SDK.operations}
        self.expect_none(f"{o.name}: {seen}" for o in SDK.operations for seen in o.partners
                         if o.name.startswith("oruSdkSet") and seen.startswith("oruSdkGet")
                         and not operations[seen].partners)

    def test_exists_for_every_setter(self):
        without = {"oruSdkSetRdrPersistChan"}  # nothing reads the list back
        self.expect_none(o.name for o in SDK.operations
                         if o.name.startswith("oruSdkSet") and o.name not in without
                         and not any(seen.startswith("oruSdkGet") for seen in o.partners))


class EveryName(Complains):
    def test_of_a_record_and_its_fields_is_explained(self):
        complaints = []
        for record in SDK.records + ASF.records:
            complaints += [record.name] if not record.comment else []
            complaints += [f"{record.name}.{f.name}" for f in record.fields if not f.comment]
        self.expect_none(complaints)

    def test_of_a_constant_or_variable_is_explained(self):
        levels = re.compile("ORUASF_LOG_")  # explained together
        self.expect_none(c.name for c in SDK.constants + ASF.constants + SDK.variables
                         if not c.comment and not levels.match(c.name))

    def test_of_a_key_stands_in_the_sources(self):
        sources = "".join(path.read_text() for path in SOURCES.glob("src/*/*.cpp"))
        literals = set(re.findall(r'"((?:[^"\\\n]|\\.)*)"', sources))
        forms = {re.sub(r"%d|(?<=^radio)[01]", "#", literal) for literal in literals}
        complaints = []
        for operation in SDK.operations:
            words = " ".join([operation.text, *operation.params.values(), *(w for _, w in operation.retvals)])
            for key in re.findall(r'"([A-Za-z][\w.%]*)"', words):
                form = re.sub(r"%d|(?<=eth#\.vid)\d+|(?<=wepKey\.)\d|(?<=radiusServer\.)\d", "#", key)
                form = re.sub(r"(?<=\.vid)\d+$|(?<=wepKey\.)\d$", "#", form)
                if form not in forms and key not in literals and not is_example(key):
                    complaints.append(f"{operation.name}: {key}")
        self.expect_none(complaints)


class Contents(Complains):
    def test_of_the_header_list_its_sections_in_order(self):
        text = (SOURCES / "include/oruSdk.h").read_text()
        listed = re.search(r"/\* Its sections, in this order:\n(.*?) \*/", text, re.S).group(1)
        sections = re.findall(r"^/\* ---- (.*?)\.? -{3,}", text, re.M)
        self.assertEqual(sections, [line.lstrip("* ") for line in listed.splitlines() if line != " *"])


def is_example(word):
    """Quoted words of comments that are values, not keys."""
    return word in {"true", "false", "AD", "ZW", "UnKNown"}


if __name__ == "__main__":
    unittest.main()
