"""docs/first-application.md: its code stands in the examples, and its transcripts are what one sees."""
import os
import re
import subprocess
import sys
import unittest
from pathlib import Path

SOURCES = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(SOURCES / "tests/support"))
import accesspoint  # noqa: E402

PAGE = (SOURCES / "docs/first-application.md").read_text()
FOLDERS = ("tests/docs/examples", "tools/oructl", "tools/orusim")


def blocks(language):
    return re.findall(rf"^```{language}\n(.*?)^```", PAGE, re.M | re.S)


def transcript(text):
    """[(command, what it prints), ...]"""
    return [(command, printed) for command, printed in re.findall(r"^\$ (.*)\n((?:(?!\$ ).*\n)*)", text, re.M)]


class Code(unittest.TestCase):
    def test_of_the_page_stands_in_the_examples(self):
        for language, file in (("c", "c/guestnet.c"), ("cpp", "cpp/whoishere.cpp"), ("cmake", "CMakeLists.txt")):
            source = [line.strip() for line in (SOURCES / "examples" / file).read_text().splitlines()]
            self.assertTrue(blocks(language))
            for block in blocks(language):
                lines = [line.strip() for line in block.splitlines()]
                for line in lines:
                    self.assertIn(line, source, file)


class Transcripts(unittest.TestCase):
    def test_of_the_page_are_what_one_sees(self):
        box = accesspoint.AccessPoint()
        self.addCleanup(box.close)
        path = os.pathsep.join(str(accesspoint.BUILD / folder) for folder in FOLDERS)
        environment = box.environment | {"PATH": path + os.pathsep + os.environ["PATH"]}
        commands = [line for block in blocks("console") for line in transcript(block)]
        self.assertGreaterEqual(len(commands), 6)
        for command, expected in commands:
            run = subprocess.run(["sh", "-c", command], env=environment, capture_output=True, text=True, timeout=60)
            seen = re.sub(r"\d+ Mbps", "NN Mbps", run.stderr + run.stdout)
            self.assertEqual([line.rstrip() for line in expected.splitlines()],
                             [line.rstrip() for line in seen.splitlines()], command)


class Examples(unittest.TestCase):
    def test_refuse_a_wrong_command_line(self):
        program = accesspoint.BUILD / "tests/docs/examples/guestnet"
        for arguments in ([], ["1"], ["4", "x"], ["-1", "x"], ["11", "x"]):
            run = subprocess.run([program, *arguments], stdin=subprocess.DEVNULL, capture_output=True)
            self.assertEqual(2, run.returncode, arguments)


if __name__ == "__main__":
    unittest.main()
