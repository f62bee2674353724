"""A copy of the tree in which mutants are built and tried, one at a time."""

import atexit
import collections
import hashlib
import json
import os
import re
import select
import shutil
import signal
import subprocess
import sys
import tempfile
import time

import sources

COPIES = os.path.join(sources.ROOT, "build", "mutants")

# The tests of the devices take long together, so each folder has its own: words in the names of the tests' files, and
# nothing for a fault elsewhere. All other programs are run for every fault that reaches them.
DEVICE_TESTS = "host_tests"
TESTS_OF_FOLDER = {
    "host/app/": "guihost|script", "host/script/": "guihost|script", "host/files/": "file",
    "host/fonts/": "font|glyph|distance", "host/render/": "render|graphics", "host/scenes/": "gltf",
    "host/sounds/": "sound", "host/window/": "window|input",
}
NO_TESTS = {"install"}  # shows what is packed, and takes long


def read_bytes(path):
    with open(path, "rb") as file:
        return file.read()


def run(command, folder, environment, quiet=3600.0, total=3600.0):
    """Runs until the end, a silence of `quiet` seconds or `total`: (passed, output, seconds, longest silence)."""
    # A mutant may want all memory and all disk there is.
    guarded = ["prlimit", "--core=0", f"--as={8 << 30}", f"--fsize={1 << 30}", *command]
    begun = heard = time.monotonic()
    output, longest, ended = b"", 0.0, False
    process = subprocess.Popen(guarded, cwd=folder, env=environment, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                               stderr=subprocess.STDOUT, start_new_session=True)
    try:
        while not ended and time.monotonic() < min(heard + quiet, begun + total):
            if select.select([process.stdout], [], [], 1)[0]:
                piece = os.read(process.stdout.fileno(), 1 << 16)
                longest, heard = max(longest, time.monotonic() - heard), time.monotonic()
                output, ended = (output + piece)[-1 << 18:], not piece
        passed = ended and process.wait(quiet) == 0
    except subprocess.TimeoutExpired:
        passed = False
    try:
        os.killpg(process.pid, signal.SIGKILL)  # also what it started and left behind
    except ProcessLookupError:
        pass
    process.wait()
    process.stdout.close()
    return passed, output.decode(errors="replace"), time.monotonic() - begun, longest


class Program:
    """A test program as ctest knows it. One of GoogleTest's is run once for all its tests, which is quicker."""

    def __init__(self, name, command, properties, copy):
        self.name, self.command = name, command
        self.folder = properties.get("WORKING_DIRECTORY", copy.build)
        own = dict(entry.split("=", 1) for entry in properties.get("ENVIRONMENT", []))
        self.environment = {**copy.environment, **own}
        self.target = os.path.basename(command[0]) if command[0].startswith(copy.build) else "all"
        self.objects = set(copy.ask("ninja", "-t", "inputs", self.target).split("\n"))
        self.quiet = self.total = 600.0

    def suites_for(self, path):
        """What to run for a fault in that file, as a filter of GoogleTest: None for all, empty for nothing."""
        if self.name != DEVICE_TESTS:
            return None
        words = next((words for folder, words in TESTS_OF_FOLDER.items() if path.startswith(folder)), None)
        if words is None:
            return ""
        with tempfile.NamedTemporaryFile(suffix=".json") as listing:
            subprocess.run([self.command[0], "--gtest_list_tests", f"--gtest_output=json:{listing.name}"], check=True,
                           stdout=subprocess.DEVNULL, env=self.environment)
            suites = json.load(listing)["testsuites"]
        return ":".join(f"{suite['name']}.*" for suite in suites
                        if any(re.search(words, os.path.basename(test["file"])) for test in suite["testsuite"]))

    def run(self, only=None):
        command = self.command + ([f"--gtest_filter={only}"] if only else [])
        return run(command, self.folder, self.environment, self.quiet, self.total)

    def failing_test(self, suites):
        """The name of what fails twice, alone or with all others; None where nothing does."""
        seen = set()
        for _ in range(3):
            passed, output, _, _ = self.run(suites)
            if passed:
                return None
            failed = re.search(r"^\[  FAILED  \] ([^\s,]+)", output, re.MULTILINE)
            begun = re.findall(r"^\[ RUN      \] (\S+)", output, re.MULTILINE)
            test = failed[1] if failed else begun[-1] if begun else None
            if test in seen or test and not self.run(test)[0]:
                return test or self.name
            seen.add(test)
        return None


class Copy:
    """The tree once more, in which one mutant at a time is built and tried."""

    def __init__(self, number, files):
        self.root = os.path.join(COPIES, str(number))
        self.build = os.path.join(self.root, "build", "release")
        self.files = files
        # Where there is no disk, saving does not wait for it.
        temporary = "/dev/shm" if os.path.isdir("/dev/shm") else tempfile.gettempdir()
        self.temporary = os.path.join(temporary, f"gui_mutants_{os.getpid()}_{number}")
        atexit.register(shutil.rmtree, self.temporary, ignore_errors=True)
        self.environment = {**os.environ, "TMPDIR": self.temporary,
                            "CCACHE_BASEDIR": self.root, "CCACHE_NOHASHDIR": "1"}
        for screen in ("DISPLAY", "WAYLAND_DISPLAY"):
            self.environment.pop(screen, None)

    def ask(self, *command):
        return subprocess.run(command, cwd=self.build, check=True, stdout=subprocess.PIPE, text=True).stdout

    def make(self, target, jobs):
        return run(["ninja", "-j", str(jobs), target], self.build, self.environment)

    def digest(self, name):
        return hashlib.sha256(read_bytes(os.path.join(self.build, name))).digest()

    def restore(self):
        """Makes the copy like the tree again, whatever the last mutant did in it."""
        shutil.rmtree(self.temporary, ignore_errors=True)
        os.makedirs(self.temporary)
        for folder, folders, names in os.walk(self.root):
            if folder == self.root and "build" in folders:
                folders.remove("build")
            for path in (os.path.join(folder, name) for name in names):
                if os.path.relpath(path, self.root) not in self.files:
                    os.remove(path)
        for path, content in self.files.items():
            copy = os.path.join(self.root, path)
            # The build goes by times, so what is the same is left alone.
            if not os.path.exists(copy) or content != read_bytes(copy):
                os.makedirs(os.path.dirname(copy), exist_ok=True)
                with open(copy, "wb") as file:
                    file.write(content)
                shutil.copymode(os.path.join(sources.ROOT, path), copy)

    def prepare(self):
        """Builds all there is, and learns from the build what depends on what."""
        self.restore()
        settings = ["-DCMAKE_CXX_FLAGS_RELEASE=-O1 -DNDEBUG", "-DGUI_BUILD_BENCHMARKS=OFF",
                    "-DCMAKE_LINK_DEPENDS_NO_SHARED=ON"]  # a changed library needs no program linked anew
        if shutil.which("ccache"):
            settings.append("-DCMAKE_CXX_COMPILER_LAUNCHER=ccache")
        if shutil.which("ld.lld"):
            settings += [f"-DCMAKE_{kind}_LINKER_FLAGS=-fuse-ld=lld" for kind in ("EXE", "MODULE", "SHARED")]
        done, output, _, _ = run(["cmake", "--preset", "release", *settings], self.root, self.environment)
        if done:
            done, output, _, _ = self.make("all", os.cpu_count())
        if not done:
            sys.exit(f"mutants: the tree as it is does not build in {self.root}\n{output[-4000:]}")

        self.objects = collections.defaultdict(set)  # by the file they are made of
        for entry in self.ask("ninja", "-t", "deps").split("\n\n"):
            made, *needs = entry.split("\n")
            for need in needs:
                path = os.path.relpath(os.path.join(self.build, need.strip()), self.root)
                self.objects[path].add(made.split(": #")[0])
        self.digests = {name: self.digest(name) for path in self.files for name in self.objects[path]}
        self.programs = self.read_programs()

    def read_programs(self):
        programs = {}
        for test in json.loads(self.ask("ctest", "--show-only=json-v1"))["tests"]:
            command, name = test["command"], test["name"]
            if any(word.startswith("--gtest_filter") for word in command):
                command, name = [command[0], "--gtest_fail_fast"], os.path.basename(command[0])
            if name not in programs and name not in NO_TESTS:
                properties = {entry["name"]: entry["value"] for entry in test["properties"]}
                programs[name] = Program(name, command, properties, self)
        return list(programs.values())

    def check(self):
        """All must pass as it is. The quickest comes first from then on: what it kills saves the rest."""
        for program in self.programs:
            for _ in range(2):
                passed, output, seconds, silence = program.run()
                if passed:
                    break
            else:
                sys.exit(f"mutants: {program.name} fails without a mutant in {self.root}\n{output[-4000:]}")
            program.seconds, program.quiet, program.total = seconds, max(20, 5 * silence), 60 + 5 * seconds
        self.programs.sort(key=lambda program: program.seconds)

    def told_order(self):
        return ", ".join(f"{program.name} {program.seconds:.1f} s" for program in self.programs)

    def attempt(self, mutant, lines, path, index, jobs):
        self.restore()
        lines = list(lines)
        lines[index] = lines[index].replace(mutant["text"], mutant["by"])
        with open(os.path.join(self.root, path), "w", encoding="utf-8") as file:
            file.write("\n".join(lines))
        result, changed = "same code", self.objects[path]
        for program in self.programs:
            touched = changed & program.objects
            suites = program.suites_for(path)
            if suites == "":
                continue
            if touched and not self.make(program.target, jobs)[0]:
                return {"result": "does not compile"}
            if any(self.digest(name) != self.digests[name] for name in touched):
                result = "survived"
                if test := program.failing_test(suites):
                    return {"result": "killed", "program": program.name, "test": test}
        return {"result": result}
