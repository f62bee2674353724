#!/usr/bin/env python3
"""Checks that includes run only from a folder to those it is built on, and that no files include each other in a ring."""

import sys

import sources

MODULE_FOLDERS = ["engine", "formats", "commands", "widgets", "definitions", "pages", "module"]

# Folder: the other folders whose headers it may include. Folders that are not named here may include all.
ALLOWED = {
    "engine": [],
    "formats": ["engine"],
    "commands": ["engine", "formats"],
    "widgets": ["engine", "formats", "commands"],
    "definitions": ["engine", "formats", "commands", "widgets"],
    "pages": ["engine", "formats", "commands", "widgets", "definitions"],
    "module": ["engine", "formats", "commands", "widgets", "definitions", "pages"],
    "base": ["engine", "formats"],
    "analysis": ["engine", "formats", "base"],
    "host": ["engine", "formats", "base", "analysis"],
}
NO_LIBRARIES = MODULE_FOLDERS + ["base"]  # the standard library alone
SYSTEM_HEADERS = {"engine": {"windows.h", "mmsystem.h"}, "base": {"fcntl.h", "io.h", "sys/stat.h", "unistd.h", "windows.h"}}


def problems_of(path, text, graph):
    """Wrong includes of one file; adds the right ones to the graph."""
    folder = path.split("/")[0]
    found = []
    graph[path] = []
    for line, mark, name in sources.includes(text):
        if mark == "<":
            standard = "." not in name and "/" not in name
            if folder in NO_LIBRARIES and not standard and name not in SYSTEM_HEADERS.get(folder, ()):
                found.append(f"{path}:{line}: {folder}/ may use the standard library only, not <{name}>")
            continue
        target = sources.resolve(path, name)
        if target is None:
            found.append(f'{path}:{line}: no file "{name}" in the project; libraries are included with <>')
            continue
        graph[path].append(target)
        target_folder = target.split("/")[0]
        if folder in ALLOWED and target_folder not in [folder] + ALLOWED[folder]:
            found.append(f"{path}:{line}: {folder}/ may not include {target_folder}/ ({target})")
    return found


def rings(graph):
    """Each ring of includes that a depth-first walk meets, as a list of files that starts and ends alike."""
    found, done, trail = [], set(), []

    def visit(path):
        if path in trail:
            found.append(trail[trail.index(path):] + [path])
            return
        if path in done:
            return
        trail.append(path)
        for target in graph.get(path, ()):
            visit(target)
        trail.pop()
        done.add(path)

    for path in graph:
        visit(path)
    return found


def main():
    graph, found = {}, []
    for path in sources.cpp_files():
        found += problems_of(path, sources.read(path), graph)
    found += ["these files include each other: " + " -> ".join(ring) for ring in rings(graph)]
    for problem in found:
        print(problem)
    if not graph:
        print("no C++ file found")
    return 1 if found or not graph else 0


if __name__ == "__main__":
    sys.exit(main())
