#!/usr/bin/env python3
"""check.py BUILD: after the tests of a build that counts coverage, lists what they did not run of what they
have to run all of: each return of an error in both libraries, and each line and branch of liboruAsf.

exempt.txt lists what cannot be run, with the reason. 1 when something else was not run, or when something
of that list was.
"""

import collections
import json
import pathlib
import re
import subprocess
import sys

SOURCES = pathlib.Path(__file__).resolve().parents[2] / "src"
EXEMPT = pathlib.Path(__file__).with_name("exempt.txt")

# What a failure is returned as; "? 0 : -1" too.
ERROR = re.compile(
    r"\bfail\(|\bORUSDK_RC_(?!OK\b)|^code$"  # liboruSdk
    r"|-1\b|\bnullptr\b|\bfalse\b|^\{\}$|::(?:unusable|leftOver)\b|^\{'\\0', 0\}$"  # liboruAsf, helpers
)
NOT_ERROR = re.compile(r"[=!]= nullptr")


class Line:
    """A line of a source file, in all functions that it was compiled into."""

    def __init__(self):
        self.count = 0
        self.whole = False  # all of its blocks ran, in one function at least
        self.branches = []

    def add(self, line):
        self.count += line["count"]
        self.whole |= line["count"] > 0 and not line["unexecuted_block"]
        counts = [branch["count"] for branch in line["branches"]]
        if len(counts) != len(self.branches):  # of a condition that the compiler decided in one of them
            shorter, self.branches = sorted((counts, self.branches), key=len)
            counts = shorter + [0] * (len(self.branches) - len(shorter))
        self.branches = [a + b for a, b in zip(self.branches, counts)]


def measured(build):
    """The lines of each source file that the build counted."""
    files = collections.defaultdict(lambda: collections.defaultdict(Line))
    notes = [str(path) for path in build.rglob("*.gcno")]
    if not notes:
        sys.exit(f"{build} counts no coverage")
    output = subprocess.run(["gcov", "--json-format", "--branch-probabilities", "--stdout", *notes], cwd=build,
                            check=True, capture_output=True, text=True).stdout
    for document in output.splitlines():
        for file in json.loads(document)["files"]:
            path = (build / file["file"]).resolve()
            if not path.is_relative_to(SOURCES):
                continue
            for line in file["lines"]:
                files[str(path.relative_to(SOURCES))][line["line_number"]].add(line)
    return files


def error_returns(text):
    """The first and the last line of each statement that returns an error."""
    without_comments = re.sub(r"//[^\n]*", "", text)
    for found in re.finditer(r"\breturn\b([^;]*);", without_comments):
        if ERROR.search(NOT_ERROR.sub("", found[1].strip())):
            first = without_comments.count("\n", 0, found.start()) + 1
            yield first, first + found[0].count("\n")


def not_run(name, text, lines):
    """How many returns of errors a file has, and what of the file was not run: line numbers and what."""
    missing = {}
    total = 0
    for first, last in error_returns(text):
        parts = [lines[number] for number in range(first, last + 1) if number in lines]
        if not parts:
            continue  # compiled out
        total += 1
        if not all(part.whole for part in parts):
            missing[first] = "error return"
    if name.startswith("asf/"):
        source = text.splitlines()
        for number, line in lines.items():
            if line.count == 0:
                missing.setdefault(number, "line")
            # At a block's end stand only those that the compiler made.
            elif 0 in line.branches and source[number - 1].strip() != "}":
                missing.setdefault(number, "branch")
    return total, missing


def exemptions():
    rows = [line.rstrip("\n").split("\t") for line in EXEMPT.open() if line.strip() and line[0] != "#"]
    return {(name, source): reason for name, source, reason in rows}


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    files = measured(pathlib.Path(sys.argv[1]).resolve())
    exempt = exemptions()
    used = set()
    returns = returns_not_run = 0
    bad = 0
    for name in sorted(files):
        text = (SOURCES / name).read_text()
        total, missing = not_run(name, text, files[name])
        returns += total
        returns_not_run += list(missing.values()).count("error return")
        for number, what in sorted(missing.items()):
            source = text.splitlines()[number - 1].strip()
            if (name, source) in exempt:
                used.add((name, source))
                continue
            print(f"src/{name}:{number}: {what} not run: {source}")
            bad += 1
    for name, source in exempt.keys() - used:
        print(f"exempt, but run or gone: src/{name}: {source}")
        bad += 1
    print(f"error returns: {returns}, run: {returns - returns_not_run}, exempt lines: {len(used)}, missing: {bad}")
    return 1 if bad else 0


if __name__ == "__main__":
    sys.exit(main())
