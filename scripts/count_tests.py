#!/usr/bin/env python3
"""Prints how many tests passed, failed and were skipped or disabled, from a report that ctest wrote."""

import sys
import xml.etree.ElementTree as ElementTree


def main():
    if len(sys.argv) != 2:
        sys.exit("usage: count_tests.py REPORT")
    suite = ElementTree.parse(sys.argv[1]).getroot()
    total, failed, skipped, disabled = (int(suite.get(name, 0)) for name in ("tests", "failures", "skipped", "disabled"))
    print(total - failed - skipped - disabled, failed, skipped + disabled)


if __name__ == "__main__":
    main()
