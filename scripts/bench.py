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
DOCUMENT = ROOT / "docs" / "performance.md"
PROGRAMS = {"this module": "gui_screen", "Dear ImGui": "imgui_screen", "CEGUI": "cegui_screen"}
COUNTS = (100, 1000, 10000)
STEPS = {"Update": "input and update", "UpdateAndDraw": "the same, drawn", "Load": "load", "LoadSceneAlone": "of it, the scene"}
WHOLE_FRAMES = 300
UNITS = {"ns": 1.0, "us": 1e3, "ms": 1e6, "s": 1e9}


def run_benchmarks(program):
    """Name of each benchmark to its median and the counters of its first run; times in nanoseconds."""
    with tempfile.TemporaryDirectory() as folder:
        out = os.path.join(folder, "out.json")
        subprocess.run([ROOT / "build/release/bin" / program, "--benchmark_repetitions=3", "--benchmark_min_time=0.1",
                        "--benchmark_out=" + out, "--benchmark_out_format=json"], cwd=folder, check=True,
                       stdout=subprocess.DEVNULL)
        with open(out, encoding="utf-8") as file:
            runs = json.load(file)["benchmarks"]
    return {run["run_name"]: {**run, "ns": run["real_time"] * UNITS[run["time_unit"]]}
            for run in runs if run.get("aggregate_name") == "median"}


def run_whole(program, buttons):
    """Seconds and mebibytes of a process that loads the screen and plays its frames."""
    with tempfile.TemporaryDirectory() as folder:
        child = subprocess.Popen([ROOT / "build/release/bin" / program, "--whole", str(buttons), str(WHOLE_FRAMES)], cwd=folder,
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


def memory_table(results):
    rows = []
    for count in COUNTS:
        cells = [results[name].get(f"Load/{count}", {}).get("bytes") if name in results else None for name in PROGRAMS]
        rows.append([f"{count:,}", *("" if cell is None else f"{cell:,.0f}" for cell in cells)])
    return table(["buttons", *(f"{name}, bytes each" for name in PROGRAMS)], rows)


def whole_table(programs):
    rows = []
    for count in COUNTS:
        cells = []
        for program in programs.values():
            seconds, size = run_whole(program, count)
            cells.append(f"{seconds:.2f} s, {size:.0f} MiB")
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
    programs = {name: program for name, program in PROGRAMS.items() if (ROOT / "build/release/bin" / program).exists()}
    results = {}
    for name, program in programs.items():
        print("measuring", name, flush=True)
        results[name] = run_benchmarks(program)
    print("measuring curves and whole programs", flush=True)
    text = DOCUMENT.read_text(encoding="utf-8")
    for name, body in (("screens", screen_table(results)), ("memory", memory_table(results)),
                       ("programs", whole_table(programs)), ("curves", curve_table(run_benchmarks("gui_bench")))):
        text = renew(text, name, body)
    DOCUMENT.write_text(text, encoding="utf-8")
    print("renewed", DOCUMENT.relative_to(ROOT))


main()
