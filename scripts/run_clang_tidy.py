#!/usr/bin/env python3
"""Runs clang-tidy over the project's sources, with the compile commands of a build folder.

A source is checked again only when it, a header of the project that it reaches, its compile command, the checks or
clang-tidy itself changed. usage: run_clang_tidy.py BUILD_FOLDER [FILE...]
"""

import hashlib
import json
import os
import re
import subprocess
import sys
from concurrent.futures import ThreadPoolExecutor

import sources


FOR_OTHER_SYSTEMS = re.compile(r"_(windows|elsewhere)\.cpp$|^tests/windows/")  # no target of this system compiles them
WHERE_INSTALLED = re.compile(r"^bench/(imgui|cegui)_screen\.cpp$")  # compiled where their libraries are


def digest(*texts):
    total = hashlib.sha256()
    for text in texts:
        total.update(hashlib.sha256(text.encode()).digest())
    return total.hexdigest()


class Tree:
    """What each source reaches of the project's own files."""

    def __init__(self):
        self._contents = {}
        self._targets = {}

    def _read(self, path):
        if path not in self._contents:
            text = sources.read(path)
            found = (sources.resolve(path, name) for _, mark, name in sources.includes(text) if mark == '"')
            self._contents[path] = text
            self._targets[path] = [target for target in found if target]

    def reached(self, path):
        seen, waiting = set(), [path]
        while waiting:
            current = waiting.pop()
            if current not in seen:
                seen.add(current)
                self._read(current)
                waiting += self._targets[current]
        return sorted(seen)

    def digest(self, path):
        reached = self.reached(path)
        return digest(*reached, *(self._contents[file] for file in reached))


def commands_of(build):
    """Source, as a path from the root, to its compile command."""
    with open(os.path.join(build, "compile_commands.json"), encoding="utf-8") as file:
        entries = json.load(file)
    commands = {}
    for entry in entries:
        path = os.path.relpath(entry["file"], sources.ROOT)
        commands[path] = entry.get("command") or " ".join(entry["arguments"])
    return commands


def settings():
    version = subprocess.run(["clang-tidy", "--version"], check=True, stdout=subprocess.PIPE, text=True).stdout
    configs = [os.path.join(folder, ".clang-tidy") for folder in [""] + sorted(
        name for name in os.listdir(sources.ROOT) if os.path.isdir(os.path.join(sources.ROOT, name)))]
    return digest(version, *(config + sources.read(config) for config in configs
                             if os.path.isfile(os.path.join(sources.ROOT, config))))


def check(build, path):
    done = subprocess.run(["clang-tidy", "--quiet", "-p", build, path], cwd=sources.ROOT, stdout=subprocess.PIPE,
                          stderr=subprocess.PIPE, text=True, stdin=subprocess.DEVNULL)
    # Standard error counts the warnings hidden in system headers; it matters only when there is nothing else to show.
    return done.returncode, done.stdout or done.stderr


def main():
    if len(sys.argv) < 2:
        sys.exit("usage: run_clang_tidy.py BUILD_FOLDER [FILE...]")
    build = os.path.abspath(sys.argv[1])
    cache = os.path.join(build, "tidy")
    os.makedirs(cache, exist_ok=True)
    commands, tree, common = commands_of(build), Tree(), settings()

    wanted = sys.argv[2:] or [path for path in sources.cpp_files()
                              if path.endswith(".cpp") and not FOR_OTHER_SYSTEMS.search(path)]
    strange = [path for path in wanted if path not in commands and not WHERE_INSTALLED.search(path)]
    for path in strange:
        print(f"{path}: no target of the build compiles this file")
    marks = {path: os.path.join(cache, digest(common, commands[path], tree.digest(path)))
             for path in wanted if path in commands}
    changed = [path for path, mark in marks.items() if not os.path.exists(mark)]

    failed = []
    with ThreadPoolExecutor(os.cpu_count()) as pool:
        results = pool.map(lambda path: (path, *check(build, path)), changed)
        for path, code, output in results:
            if code == 0:
                open(marks[path], "w", encoding="utf-8").close()
            else:
                failed.append(path)
                print(output.rstrip(), flush=True)
    for name in set(os.listdir(cache)) - {os.path.basename(mark) for mark in marks.values()} if not sys.argv[2:] else ():
        os.remove(os.path.join(cache, name))
    print(f"clang-tidy: {len(wanted)} files, {len(changed)} checked now, {len(failed)} with findings")
    return 1 if failed or strange or not wanted else 0


if __name__ == "__main__":
    sys.exit(main())
