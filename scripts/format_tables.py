#!/usr/bin/env python3
"""Puts what the programs print_tables and print_checks print into the documents and the fuzz programs' dictionaries.

It stands between lines such as "<!-- begin item -->" and "<!-- end -->" of a document, "# begin item text" and "# end"
of a dictionary. usage: format_tables.py PROGRAM... [--check]    with --check it tells what it would change, and fails
"""

import re
import subprocess
import sys

import sources

MARKED = {
    "docs": (("docs/*.md",), re.compile(r"(<!-- begin ([\w ]+) -->\n).*?(<!-- end -->\n)", re.DOTALL)),
    "words": (("fuzz/dictionaries/*.dict",), re.compile(r"(# begin ([\w ]+)\n).*?(# end\n)", re.DOTALL)),
}


def read_tables(programs):
    printed = "".join(subprocess.run([program], check=True, stdout=subprocess.PIPE, text=True).stdout for program in programs)
    parts = re.split(r"^\[(\w+) (\w+)\]\n", printed, flags=re.MULTILINE)[1:]
    return {(kind, name): table for kind, name, table in zip(*[iter(parts)] * 3)}


def main():
    checks = sys.argv[-1] == "--check"
    programs = sys.argv[1:-1] if checks else sys.argv[1:]
    if not programs:
        sys.exit("usage: format_tables.py PROGRAM... [--check]")
    tables, used, stale = read_tables(programs), set(), []
    for kind, (patterns, mark) in MARKED.items():
        for path in sources.files(*patterns):
            def fill(match):
                names = [(kind, name) for name in match[2].split()]
                used.update(names)
                return match[1] + "".join(tables[name] for name in names) + match[3]
            text = sources.read(path)
            new = mark.sub(fill, text)
            if new != text:
                stale.append(path)
                if not checks:
                    with open(path, "w", encoding="utf-8") as file:
                        file.write(new)
    for path in stale:
        print(f"{path}: its tables are not those of the program" if checks else f"{path}: tables renewed")
    print(f"{len(used)} tables")
    return 1 if stale and checks else 0


if __name__ == "__main__":
    sys.exit(main())
