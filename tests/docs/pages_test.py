"""Pages that are made from the sources: as the sources are now."""
import json
import os
import re
import subprocess
import sys
import unittest
from pathlib import Path

SOURCES = Path(__file__).resolve().parents[2]
BUILD = Path(os.environ["ORU_BUILD_DIR"])
sys.path.insert(0, str(SOURCES / "scripts"))
import configuration_keys  # noqa: E402

ITEMS = json.loads(subprocess.run([BUILD / "tools/oructl/oructl", "--json", "list"], capture_output=True,
                                  check=True).stdout)["items"]


class ConfigurationKeys(unittest.TestCase):
    maxDiff = None

    def test_are_those_of_the_sources(self):
        """Mend it with: scripts/configuration_keys.py build/tools/oructl/oructl docs/configuration-keys.md"""
        self.assertEqual(configuration_keys.page(ITEMS).splitlines(),
                         (SOURCES / "docs/configuration-keys.md").read_text().splitlines())

    def test_are_each_used_by_an_operation(self):
        for file, rows in configuration_keys.rows(ITEMS):
            for row in rows:
                self.assertNotEqual(("-", "-"), row[-2:], f"{file} {row[0]}")

    def test_cover_what_the_library_writes_and_reads(self):
        page = (SOURCES / "docs/configuration-keys.md").read_text()
        for source in SOURCES.glob("src/*/*.cpp"):
            for key in re.findall(r'(?:Key\{|(?:get|set)\w+\(\w+(?:\.\w+)?, )"([\w.%]+)"', source.read_text()):
                self.assertIn(f"`{configuration_keys.form(key)}`", page, source.name)


class Links(unittest.TestCase):
    def test_of_all_pages_lead_somewhere(self):
        pages = [*SOURCES.glob("*.md"), *SOURCES.glob("docs/*.md"), *SOURCES.glob("bindings/**/*.md"),
                 *SOURCES.glob("examples/**/*.md")]
        for page in pages:
            for link in re.findall(r"\]\(([^)#:]+)(?:#[^)]*)?\)", page.read_text()):
                self.assertTrue((page.parent / link).exists(), f"{page}: {link}")


if __name__ == "__main__":
    unittest.main()
