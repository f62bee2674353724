#!/usr/bin/env python3
"""Prints a table of line coverage by folder, and the lines that never ran, from a file in lcov's format."""

import sys
from pathlib import Path

FOLDERS = ["engine", "commands", "widgets", "definitions", "pages", "module", "base"]


def read_counts(lcov, root):
    """File: line: how often it ran; of the files in our folders. A file may come more than once."""
    counts = {}
    lines = {}
    for record in lcov.read_text().splitlines():
        kind, _, value = record.partition(":")
        if kind == "SF":
            path = Path(value)
            inside = path.is_relative_to(root) and path.relative_to(root).parts[0] in FOLDERS
            lines = counts.setdefault(str(path.relative_to(root)), {}) if inside else {}
        elif kind == "DA":
            line, count = value.split(",")[:2]
            lines[int(line)] = max(lines.get(int(line), 0), int(count))
    return counts


def print_table(counts):
    print(f"{'folder':<14}{'lines':>7}{'never run':>11}{'run':>9}")
    total = missed = 0
    for folder in FOLDERS:
        runs = [count for path, lines in counts.items() if path.split("/")[0] == folder for count in lines.values()]
        zero = runs.count(0)
        total, missed = total + len(runs), missed + zero
        if runs:
            print(f"{folder:<14}{len(runs):>7}{zero:>11}{100 * (1 - zero / len(runs)):>8.1f}%")
    print(f"{'all':<14}{total:>7}{missed:>11}{100 * (1 - missed / max(total, 1)):>8.1f}%")


def print_missed(counts, root):
    for path in sorted(counts):
        missed = sorted(line for line, count in counts[path].items() if count == 0)
        source = (root / path).read_text().splitlines() if missed else []
        for line in missed:
            print(f"{path}:{line}: {source[line - 1].strip()}")


def main():
    root = Path(__file__).resolve().parent.parent
    counts = read_counts(Path(sys.argv[1]), root)
    if not counts:
        sys.exit("coverage: nothing of this project ran")
    print_table(counts)
    print()
    print_missed(counts, root)


main()
