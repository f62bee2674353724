#!/usr/bin/env python3
"""Prints what the failed tests of a report that ctest wrote had printed, the end of it where it is long.

usage: failed_tests.py REPORT
"""

import sys
import xml.etree.ElementTree as ElementTree

LINES = 60


def main():
    if len(sys.argv) != 2:
        sys.exit("usage: failed_tests.py REPORT")
    for case in ElementTree.parse(sys.argv[1]).getroot().iter("testcase"):
        if case.find("failure") is None:
            continue
        lines = (case.findtext("system-out") or "").splitlines()
        print(f"\n--- failed: {case.get('name')}")
        if len(lines) > LINES:
            print(f"({len(lines) - LINES} lines before)")
        print("\n".join(lines[-LINES:]))


if __name__ == "__main__":
    main()
