#!/usr/bin/env python3
"""Prints how many tests passed, failed and were skipped or disabled, from a report that ctest wrote.

A test of ctest that is a whole program of tests counts as those, where the program left a report of its name in the
folder. usage: count_tests.py REPORT [FOLDER]
"""

import os
import sys
import xml.etree.ElementTree as ElementTree
from collections import Counter


def outcome(case):
    if case.find("failure") is not None:
        return "failed"
    unrun = case.find("skipped") is not None or case.get("status") in ("notrun", "disabled")
    return "skipped" if unrun else "passed"


def outcomes(report):
    return [(case.get("name"), outcome(case)) for case in ElementTree.parse(report).getroot().iter("testcase")]


def main():
    if len(sys.argv) not in (2, 3):
        sys.exit("usage: count_tests.py REPORT [FOLDER]")
    total = Counter()
    for name, result in outcomes(sys.argv[1]):
        inner = os.path.join(sys.argv[2], f"{name}.xml") if len(sys.argv) == 3 else ""
        counts = Counter(result for _, result in outcomes(inner)) if os.path.isfile(inner) else Counter([result])
        if result == "failed" and not counts["failed"]:
            counts["failed"] = 1  # the program ended badly after its tests
        total += counts
    print(total["passed"], total["failed"], total["skipped"])


if __name__ == "__main__":
    main()
