#!/usr/bin/env python3
"""Checks that the links inside the repository, to files and to headings, lead somewhere, in every *.md.

Prints file:line for each that does not, and ends with 1 then.
"""

import pathlib
import re
import subprocess
import sys
from urllib.parse import unquote

ROOT = pathlib.Path(__file__).resolve().parent.parent
FENCE = re.compile(r"^\s*(```|~~~)")
CODE = re.compile(r"(`+).+?\1")
LINK = re.compile(r"\]\(\s*<?([^)>\s]+)>?(?:\s+\"[^\"]*\")?\s*\)|^\s*\[[^\]]+\]:\s*(\S+)")
HEADING = re.compile(r"^#{1,6}\s+(.*?)\s*#*\s*$")
ELSEWHERE = re.compile(r"^[a-z][a-z0-9+.-]*:|^//", re.IGNORECASE)


def documents():
    listed = subprocess.run(
        ["git", "ls-files", "-z", "--cached", "--others", "--exclude-standard", "*.md"],
        cwd=ROOT, capture_output=True, check=True, text=True).stdout
    return [ROOT / name for name in listed.split("\0") if name and (ROOT / name).exists()]


def prose(document):
    """The lines outside of code blocks, with their numbers."""
    fence = None
    for number, line in enumerate(document.read_text(encoding="utf-8").splitlines(), 1):
        mark = FENCE.match(line)
        if mark and fence in (None, mark[1]):
            fence = None if fence else mark[1]
        elif fence is None:
            yield number, line


def slug(heading):
    """The name under which a heading can be linked to."""
    words = re.sub(r"\[([^\]]*)\]\([^)]*\)", r"\1", heading).lower()
    return re.sub(r"[^\w\- ]", "", words).replace(" ", "-")


def anchors(document):
    found = set()
    for _, line in prose(document):
        heading = HEADING.match(line)
        if not heading:
            continue
        name = first = slug(heading[1])
        copies = 0
        while name in found:
            copies += 1
            name = f"{first}-{copies}"
        found.add(name)
    return found


def links(document):
    for number, line in prose(document):
        for inline, reference in LINK.findall(CODE.sub("", line)):
            target = inline or reference
            if not ELSEWHERE.match(target):
                yield number, target


def fault(document, target):
    """What is wrong with a link; None when nothing is."""
    path, _, anchor = unquote(target).partition("#")
    place = (document.parent / path).resolve() if path else document
    if not place.is_relative_to(ROOT) or not place.exists():
        return "no such file"
    if anchor and (place.suffix != ".md" or anchor not in anchors(place)):
        return "no such heading"
    return None


def main():
    checked = documents()
    faults = [f"{document.relative_to(ROOT)}:{number}: {target}: {problem}"
              for document in checked for number, target in links(document) if (problem := fault(document, target))]
    print("\n".join(faults) if faults else f"{len(checked)} files")
    return 1 if faults else 0


sys.exit(main())
