#!/usr/bin/env python3
"""Prints how many lines the tests are of the code, and fails when they are more than 34 % of it.

Counted are the lines of C++ that are neither blank nor only a comment; as code all but tests, benchmarks and fuzzing.
"""

import re
import sys

import sources

BLANK = re.compile(r"^\s*(//.*)?$")
NO_CODE = ("tests/", "bench/", "fuzz/")
MOST = 1 / 3


def lines(paths):
    return sum(not BLANK.match(line) for path in paths for line in sources.read(path).splitlines())


def main():
    paths = sources.cpp_files()
    tests = lines(path for path in paths if path.startswith("tests/"))
    code = lines(path for path in paths if not path.startswith(NO_CODE))
    print(f"tests: {tests} lines, {tests / code:.1%} of {code} of code")
    return 0 if tests <= MOST * code else f"more than {MOST:.1%} is too much: what does another test catch already?"


if __name__ == "__main__":
    sys.exit(main())
