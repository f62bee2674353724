#!/usr/bin/env python3
"""Runs clang-tidy over the project's sources, with the compile commands of a build folder.

Sources that are compiled in batches are read in batches, so that their headers are read once. A batch is checked again
only when one of its sources, a header of the project that they reach, its compile command, the checks or clang-tidy itself
changed. usage: run_clang_tidy.py BUILD_FOLDER [FILE...]    with the batches that the files are in
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
WHERE_INSTALLED = re.compile(r"^bench/(imgui|cegui)_(screen|frames)\.cpp$")  # compiled where their libraries are
CONFIG = ".clang-tidy"


def digest(*texts):
    total = hashlib.sha256()
    for text in texts:
        total.update(hashlib.sha256(text.encode()).digest())
    return total.hexdigest()


def from_root(path):
    return os.path.relpath(path, sources.ROOT)


class Tree:
    """What sources reach of the project's own files."""

    def __init__(self):
        self._contents = {}
        self._targets = {}

    def _read(self, path):
        if path not in self._contents:
            text = sources.read(path)
            found = (sources.resolve(path, name) for _, mark, name in sources.includes(text) if mark == '"')
            self._contents[path] = text
            self._targets[path] = [target for target in found if target]

    def reached(self, paths):
        seen, waiting = set(), list(paths)
        while waiting:
            current = waiting.pop()
            if current not in seen:
                seen.add(current)
                self._read(current)
                waiting += self._targets[current]
        return sorted(seen)

    def digest(self, paths):
        reached = self.reached(paths)
        return digest(*reached, *(self._contents[file] for file in reached))


class Unit:
    """What the compiler, and so clang-tidy, takes at once: a source, or a batch of them."""

    def __init__(self, entry):
        self.file = entry["file"]
        self.command = entry.get("command") or " ".join(entry["arguments"])
        self.sources = [from_root(self.file)]
        if "/Unity/" in self.file:
            self.sources = [from_root(name) for _, _, name in sources.includes(sources.read(from_root(self.file)))]

    def config(self):
        """The settings of the first source's folder."""
        folder = self.sources[0]
        while folder:
            folder = os.path.dirname(folder)
            if os.path.isfile(os.path.join(sources.ROOT, folder, CONFIG)):
                break
        return os.path.join(sources.ROOT, folder, CONFIG)

    def check(self, build):
        # A batch includes sources, which is what it is for.
        done = subprocess.run(["clang-tidy", "--quiet", "--checks=-bugprone-suspicious-include", "--config-file",
                               self.config(), "-p", build, self.file], cwd=sources.ROOT, stdout=subprocess.PIPE,
                              stderr=subprocess.PIPE, text=True, stdin=subprocess.DEVNULL)
        # Standard error counts the warnings hidden in system headers; it matters only when there is nothing else to show.
        return done.returncode, done.stdout or done.stderr


def units_of(build):
    with open(os.path.join(build, "compile_commands.json"), encoding="utf-8") as file:
        return [Unit(entry) for entry in json.load(file)]


def settings():
    version = subprocess.run(["clang-tidy", "--version"], check=True, stdout=subprocess.PIPE, text=True).stdout
    configs = sources.files(CONFIG, f"*/{CONFIG}")
    return digest(version, *(config + sources.read(config) for config in configs))


def main():
    if len(sys.argv) < 2:
        sys.exit("usage: run_clang_tidy.py BUILD_FOLDER [FILE...]")
    build = os.path.abspath(sys.argv[1])
    cache = os.path.join(build, "tidy")
    os.makedirs(cache, exist_ok=True)
    tree, common = Tree(), settings()

    wanted = set(sys.argv[2:] or (path for path in sources.cpp_files()
                                  if path.endswith(".cpp") and not FOR_OTHER_SYSTEMS.search(path)))
    units = [unit for unit in units_of(build) if wanted.intersection(unit.sources)]
    strange = wanted.difference(*(unit.sources for unit in units))
    strange = sorted(path for path in strange if not WHERE_INSTALLED.search(path))
    for path in strange:
        print(f"{path}: no target of the build compiles this file")
    marks = {unit: os.path.join(cache, digest(common, unit.command, tree.digest(unit.sources))) for unit in units}
    changed = [unit for unit, mark in marks.items() if not os.path.exists(mark)]
    changed.sort(key=lambda unit: -len(tree.reached(unit.sources)))  # so that no long one is the last

    failed = []
    with ThreadPoolExecutor(os.cpu_count()) as pool:
        results = pool.map(lambda unit: (unit, *unit.check(build)), changed)
        for unit, code, output in results:
            if code == 0:
                open(marks[unit], "w", encoding="utf-8").close()
            else:
                failed.append(unit)
                print(output.rstrip(), flush=True)
    for name in set(os.listdir(cache)) - {os.path.basename(mark) for mark in marks.values()} if not sys.argv[2:] else ():
        os.remove(os.path.join(cache, name))
    print(f"clang-tidy: {len(wanted)} files in {len(units)} batches, {len(changed)} checked now, "
          f"{len(failed)} with findings")
    return 1 if failed or strange or not wanted else 0


if __name__ == "__main__":
    sys.exit(main())
