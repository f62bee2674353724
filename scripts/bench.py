#!/usr/bin/env python3
"""Measures the module, Dear ImGui and CEGUI on the same screen, and renews the tables of docs/performance.md.

Installs and builds what it needs. Takes some minutes; the machine should have nothing else to do.
"""

import json
import os
import pathlib
import re
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parent.parent
BINARIES = ROOT / "build/release/bin"
DOCUMENT = ROOT / "docs" / "performance.md"
PROGRAMS = {"this module": "gui_screen", "Dear ImGui": "imgui_screen", "CEGUI": "cegui_screen"}
FRAME_PROGRAMS = {"this module": "gui_frames", "Dear ImGui": "imgui_frames"}
COUNTS = (100, 1000, 10000, 100000)
MOST = {"CEGUI": 10000}  # more take minutes to load
STEPS = {"Update": "input and update", "UpdateAndDraw": "the same, drawn", "Load": "load", "LoadSceneAlone": "of it, the scene"}
WHOLE_FRAMES = 300
UNITS = {"ns": 1.0, "us": 1e3, "ms": 1e6, "s": 1e9}

# Mesa's driver that draws with the processor, in one thread, and the one that does nothing, behind the same OpenGL.
SOFTWARE = {"SDL_VIDEODRIVER": "offscreen", "LIBGL_ALWAYS_SOFTWARE": "1", "GALLIUM_DRIVER": "llvmpipe", "LP_NUM_THREADS": "0"}
NO_DRAWING = {**SOFTWARE, "GALLIUM_NOOP": "1"}
# Words of a row, its environment, and the benchmark of each program.
FRAMES = (("nothing drawn", NO_DRAWING, {"this module": "Frame", "Dear ImGui": "Frame"}),
          ("drawn, one sample a pixel", SOFTWARE, {"this module": "FrameOfOneSample", "Dear ImGui": "Frame"}),
          ("drawn, four samples a pixel", SOFTWARE, {"this module": "Frame"}))


def run_benchmarks(program, environment=None, only="."):
    """Name of each benchmark to its median and counters; processor time in nanoseconds."""
    with tempfile.TemporaryDirectory() as folder:
        out = os.path.join(folder, "out.json")
        subprocess.run([BINARIES / program, "--benchmark_repetitions=3", "--benchmark_min_time=0.1",
                        "--benchmark_filter=" + only, "--benchmark_out=" + out, "--benchmark_out_format=json"], cwd=folder, check=True,
                       stdout=subprocess.DEVNULL, env={**os.environ, **(environment or {})})
        with open(out, encoding="utf-8") as file:
            runs = json.load(file)["benchmarks"]
    return {run["run_name"].removesuffix("/process_time"): {**run, "ns": run["cpu_time"] * UNITS[run["time_unit"]]}
            for run in runs if run.get("aggregate_name") == "median"}


def run_whole(program, buttons):
    """Seconds and mebibytes of a process that loads the screen and plays its frames."""
    with tempfile.TemporaryDirectory() as folder:
        child = subprocess.Popen([BINARIES / program, "--whole", str(buttons), str(WHOLE_FRAMES)], cwd=folder,
                                 stdout=subprocess.DEVNULL)
        _, status, usage = os.wait4(child.pid, 0)
    if status != 0:
        sys.exit(f"bench: {program} --whole {buttons} failed")
    return usage.ru_utime + usage.ru_stime, usage.ru_maxrss / 1024


def row(*cells):
    return "| " + " | ".join(cells) + " |"


def table(head, rows):
    return "\n".join([row(*head), "|" + "---|" * len(head), *(row(*cells) for cells in rows)])


def nanoseconds(value):
    return "" if value is None else f"{value:,.0f}" if value >= 100 else f"{value:.1f}"


def screen_table(results):
    """Nanoseconds for each button, and how many times as long the others take."""
    rows = []
    for step, words in STEPS.items():
        for count in COUNTS:
            each = {name: runs[f"{step}/{count}"]["ns"] / count if f"{step}/{count}" in runs else None
                    for name, runs in results.items()}
            own = each["this module"]
            ratios = [f"{each[name] / own:.1f}" if each.get(name) else "" for name in list(PROGRAMS)[1:]]
            rows.append([words, f"{count:,}", *(nanoseconds(each.get(name)) for name in PROGRAMS), *ratios])
    return table(["ns for each button", "buttons", *PROGRAMS, *(f"{name} / this" for name in list(PROGRAMS)[1:])], rows)


def frames_table():
    """Milliseconds of a whole frame, and how many times as long Dear ImGui takes."""
    rows = []
    for words, environment, benchmarks in FRAMES:
        runs = {name: run_benchmarks(FRAME_PROGRAMS[name], environment, f"^{benchmark}/")
                for name, benchmark in benchmarks.items() if (BINARIES / FRAME_PROGRAMS[name]).exists()}
        for count in COUNTS[1:]:
            own, other = (runs.get(name, {}).get(f"{benchmarks.get(name)}/{count}", {}).get("ns") for name in FRAME_PROGRAMS)
            rows.append([words, f"{count:,}", *("" if ns is None else f"{ns / 1e6:,.2f}" for ns in (own, other)),
                         f"{other / own:.2f}" if other else ""])
    return table(["ms a frame", "buttons", *FRAME_PROGRAMS, "Dear ImGui / this"], rows)


def calls_table():
    runs = run_benchmarks(FRAME_PROGRAMS["this module"], NO_DRAWING, "^Calls/")
    by_count = {int(name.split("/")[1]): run for name, run in runs.items()}
    return table(["buttons", "OpenGL calls a frame", "of them draw calls"],
                 [[f"{count:,}", f"{run['calls']:,.0f}", f"{run['draws']:,.0f}"] for count, run in sorted(by_count.items())])


def memory_table(results):
    rows = []
    for count in COUNTS:
        cells = [results.get(name, {}).get(f"{step}/{count}", {}).get("bytes")
                 for name, step in (("this module", "Load"), ("this module", "LoadSceneAlone"), ("CEGUI", "Load"))]
        rows.append([f"{count:,}", *("" if cell is None else f"{cell:,.0f}" for cell in cells)])
    return table(["buttons", "this module with its scene, bytes each", "of it, the scene", "CEGUI, bytes each"], rows)


def whole_table(programs):
    rows = []
    for count in COUNTS:
        cells = []
        for name, program in programs.items():
            if count > MOST.get(name, count):
                cells.append("")
                continue
            seconds, size = run_whole(program, count)
            cells.append(f"{seconds:.2f} s, {size:,.0f} MiB")
        rows.append([f"{count:,}", *cells])
    return table(["buttons", *programs], rows)


def curve_table(runs):
    rows = []
    for name, run in runs.items():
        each = run.get("each")
        rows.append([name.replace("/", ", "), f"{run['ns'] / 1e3:,.1f}", "" if each is None else nanoseconds(each * 1e9)])
    return table(["", "µs", "ns each"], rows)


def renew(text, name, body):
    """Replaces what is between the marks of that name."""
    begin, end = f"<!-- {name} -->", f"<!-- end of {name} -->"
    pattern = re.compile(re.escape(begin) + ".*?" + re.escape(end), re.DOTALL)
    if not pattern.search(text):
        sys.exit(f"bench: {DOCUMENT.relative_to(ROOT)} has no mark {begin}")
    return pattern.sub(lambda _: f"{begin}\n{body}\n{end}", text)


def main():
    subprocess.run([ROOT / "scripts/install_packages.sh", *(ROOT / "scripts" / name for name in (
        "packages-run.txt", "packages-bench.txt"))], check=True)
    (ROOT / "build/release/configured").unlink(missing_ok=True)  # the other GUIs may be new
    subprocess.run([ROOT / "scripts/build.sh", "release"], check=True)
    programs = {name: program for name, program in PROGRAMS.items() if (BINARIES / program).exists()}
    results = {}
    for name, program in programs.items():
        print("measuring", name, flush=True)
        results[name] = run_benchmarks(program)
    print("measuring whole frames, curves and whole programs", flush=True)
    text = DOCUMENT.read_text(encoding="utf-8")
    for name, body in (("screens", screen_table(results)), ("frames", frames_table()), ("calls", calls_table()),
                       ("memory", memory_table(results)),
                       ("programs", whole_table(programs)), ("curves", curve_table(run_benchmarks("gui_bench")))):
        text = renew(text, name, body)
    DOCUMENT.write_text(text, encoding="utf-8")
    print("renewed", DOCUMENT.relative_to(ROOT))


main()
