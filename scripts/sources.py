"""The project's C++ files and what they include. Run alone, it prints the files, each ended with a zero byte."""

import os
import re
import subprocess
import sys

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
INCLUDE = re.compile(r'^[ \t]*#[ \t]*include[ \t]*([<"])([^>"]+)[>"]', re.MULTILINE)


def files(*patterns):
    """All files of the source tree, those not yet added to git too, as paths from its root."""
    listing = subprocess.run(
        ["git", "ls-files", "-z", "--cached", "--others", "--exclude-standard", "--", *patterns],
        cwd=ROOT, check=True, stdout=subprocess.PIPE, text=True).stdout
    return [path for path in sorted(set(listing.split("\0"))) if path and os.path.isfile(os.path.join(ROOT, path))]


def cpp_files():
    return files("*.h", "*.cpp")


def read(path):
    with open(os.path.join(ROOT, path), encoding="utf-8") as file:
        return file.read()


def includes(text):
    """(line number, "<" or '"', name) of each include."""
    return [(text.count("\n", 0, match.start(2)) + 1, match[1], match[2]) for match in INCLUDE.finditer(text)]


def resolve(path, name):
    """The project's file that a quoted include names, from the root or beside the including file; else None."""
    for candidate in (name, os.path.normpath(os.path.join(os.path.dirname(path), name))):
        if os.path.isfile(os.path.join(ROOT, candidate)):
            return candidate
    return None


if __name__ == "__main__":
    sys.stdout.write("".join(path + "\0" for path in cpp_files()))
