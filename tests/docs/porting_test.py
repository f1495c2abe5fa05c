"""docs/porting.md: the symbols that it names are those that liboruSdk needs, and they suffice."""
import re
import subprocess
import sys
import unittest
from pathlib import Path

SOURCES = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(SOURCES / "tests/support"))
import accesspoint  # noqa: E402

DEVICE = accesspoint.BUILD / "tests/docs/device"


def symbols(library, *options):
    listed = subprocess.run(["nm", "-D", *options, library], capture_output=True, text=True, check=True).stdout
    return set(re.findall(r"\b(oruAsf\w+)", listed))


class Symbols(unittest.TestCase):
    def setUp(self):
        self.needed = symbols(accesspoint.BUILD / "src/liboruSdk.so", "--undefined-only")
        self.assertGreater(len(self.needed), 20)

    def test_of_the_page_are_those_that_are_needed(self):
        table = re.search(r"^## Symbols\n(.*?)^The handles", (SOURCES / "docs/porting.md").read_text(), re.M | re.S)[1]
        self.assertEqual(self.needed, set(re.findall(r"`(oruAsf\w+)`", table)))

    def test_of_the_device_library_are_no_others(self):
        self.assertEqual(self.needed, symbols(DEVICE / "liboruAsf.so", "--defined-only"))


class Device(unittest.TestCase):
    def test_runs_an_application(self):
        box = accesspoint.AccessPoint()
        self.addCleanup(box.close)
        run = subprocess.run([accesspoint.BUILD / "tests/docs/examples/guestnet", "2", "Guests"], input="come right in\n",
                             env=box.environment | {"LD_LIBRARY_PATH": str(DEVICE), "LD_BIND_NOW": "1"},
                             capture_output=True, text=True)
        self.assertEqual((0, ""), (run.returncode, run.stderr))
        self.assertIn('bss2.ssId="Guests"', box.file("/var/wsmDefaults").read_text())

    def test_library_is_the_one_that_is_used(self):
        run = subprocess.run(["ldd", accesspoint.BUILD / "src/liboruSdk.so"], env={"LD_LIBRARY_PATH": str(DEVICE)},
                             capture_output=True, text=True, check=True)
        self.assertIn(str(DEVICE / "liboruAsf.so.1"), run.stdout)


if __name__ == "__main__":
    unittest.main()
