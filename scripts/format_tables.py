#!/usr/bin/env python3
"""Puts the tables that the program print_tables prints into the documents and the fuzz programs' dictionaries.

They stand between lines such as "<!-- begin item -->" and "<!-- end -->" of a document, "# begin item text" and "# end"
of a dictionary. usage: format_tables.py PRINT_TABLES [--check]    with --check it tells what it would change, and fails
"""

import re
import subprocess
import sys

import sources

MARKED = {
    "docs": (("docs/*.md",), re.compile(r"(<!-- begin ([\w ]+) -->\n).*?(<!-- end -->\n)", re.DOTALL)),
    "words": (("fuzz/dictionaries/*.dict",), re.compile(r"(# begin ([\w ]+)\n).*?(# end\n)", re.DOTALL)),
}


def read_tables(program):
    printed = subprocess.run([program], check=True, stdout=subprocess.PIPE, text=True).stdout
    parts = re.split(r"^\[(\w+) (\w+)\]\n", printed, flags=re.MULTILINE)[1:]
    return {(kind, name): table for kind, name, table in zip(*[iter(parts)] * 3)}


def main():
    if len(sys.argv) not in (2, 3) or sys.argv[2:] not in ([], ["--check"]):
        sys.exit("usage: format_tables.py PRINT_TABLES [--check]")
    tables, used, stale = read_tables(sys.argv[1]), set(), []
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
                if len(sys.argv) == 2:
                    with open(path, "w", encoding="utf-8") as file:
                        file.write(new)
    for path in stale:
        print(f"{path}: its tables are not those of formats/" if len(sys.argv) == 3 else f"{path}: tables renewed")
    print(f"{len(used)} tables")
    return 1 if stale and len(sys.argv) == 3 else 0


if __name__ == "__main__":
    sys.exit(main())
