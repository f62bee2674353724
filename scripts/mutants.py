#!/usr/bin/env python3
"""Measures what the tests catch: puts one-line faults (mutants) into the sources, one at a time, and runs the tests.

A mutant is killed when a test fails, ends badly or falls silent, and does so again; else it has survived. One that does
not compile, or compiles to the same code, measures nothing, and the next takes its place. The same seed and count give
the same mutants on the same tree. To measure the same ones on a later tree, name the first run's results with --list:
their lines are found again where they moved. Tells the survivors, and what killed the others.
"""

import argparse
import collections
import concurrent.futures
import fcntl
import json
import os
import random
import signal
import sys
import threading
import time

import faults
import sources
from mutant_copy import COPIES, Copy, read_bytes

FOLDERS = ("commands/", "definitions/", "widgets/", "pages/", "module/", "base/", "host/")
MEASURED = ("killed", "survived")
IDENTITY = ("file", "text", "nth", "of", "kind", "by")


class Run:
    """Hands out the mutants in their order until enough are measured, and keeps the results."""

    def __init__(self, mutants, count, results, out):
        self.count, self.results, self.out = count, results, out
        self.lock, self.waiting, self.open = threading.Lock(), iter(mutants), 0
        self.begun, self.had = time.monotonic(), self.measured()

    def measured(self):
        return sum(result["result"] in MEASURED for result in self.results.values())

    def claim(self):
        with self.lock:
            for mutant in self.waiting if self.measured() + self.open < self.count else ():
                if key(mutant) not in self.results:
                    self.open += 1
                    return mutant
        return None

    def keep(self, mutant, result):
        with self.lock:
            self.open -= 1
            self.results[key(mutant)] = {**mutant, **result}
            self.out.write(json.dumps(self.results[key(mutant)]) + "\n")
            self.out.flush()
            done = self.measured()
            survived = sum(result["result"] == "survived" for result in self.results.values())
            left = (time.monotonic() - self.begun) / max(1, done - self.had) * (self.count - done) / 60
            print(f"{done} of {self.count}, {survived} survived, {left:.0f} min left", file=sys.stderr, flush=True)

    def work(self, copy, tree, jobs):
        while mutant := self.claim():
            begun, result = time.monotonic(), {"result": "not found"}
            if place := faults.find(mutant, tree):
                result = copy.attempt(mutant, tree[place[0]], *place, jobs)
            self.keep(mutant, {**result, "seconds": round(time.monotonic() - begun, 1)})


def key(mutant):
    return tuple(mutant[name] for name in IDENTITY)


def read_results(path):
    with open(path, encoding="utf-8") as file:
        return {key(result): result for result in map(json.loads, file)}


def report(results, earlier, tree):
    of = {outcome: [result for result in results if result["result"] == outcome]
          for outcome in (*MEASURED, "not found", "does not compile", "same code")}
    measured = of["killed"] + of["survived"]
    share = len(of["killed"]) / max(1, len(measured))
    print(f"{len(measured)} mutants, {len(of['killed'])} killed, {share:.1%}")
    print("besides " + ", ".join(f"{len(of[outcome])} {outcome}" for outcome in list(of)[len(MEASURED):]))
    print("\nkilled by")
    for program, number in collections.Counter(result["program"] for result in of["killed"]).most_common():
        print(f"  {number:4} {program}")
    print("\nkilled of")
    for group in (lambda result: result["kind"], lambda result: result["file"].split("/")[0] + "/"):
        killed = collections.Counter(map(group, of["killed"]))
        for name, number in collections.Counter(map(group, measured)).most_common():
            print(f"  {killed[name]:4} {number:4} {name}")
    for outcome in ("survived", "not found"):
        print(f"\n{outcome}")
        for result in of[outcome]:
            path, index = faults.find(result, tree) or (result["file"], None)
            line = "" if index is None else f":{index + 1}"
            before = earlier.get(key(result), {})
            was = f", killed by {before['program']}, {before['test']} before" if "program" in before else ""
            print(f"{path}{line}: {result['kind']}{was}\n  - {result['text']}\n  + {result['by']}")


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n", maxsplit=1)[0])
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--count", type=int, default=200, help="mutants to measure (default: 200)")
    parser.add_argument("--list", metavar="FILE", help="results of an earlier run, whose mutants are measured again")
    parser.add_argument("--out", metavar="FILE", default=os.path.join(COPIES, "results.jsonl"), help="for the results")
    parser.add_argument("--jobs", type=int, default=max(1, os.cpu_count()), help="mutants at a time")
    parser.add_argument("--resume", action="store_true", help="go on with what is missing in the results")
    options = parser.parse_args()
    signal.signal(signal.SIGTERM, signal.default_int_handler)  # to end as an interruption does

    files = {path: read_bytes(os.path.join(sources.ROOT, path)) for path in sources.files()}
    tree = {path: files[path].decode().split("\n") for path in sources.cpp_files() if path.startswith(FOLDERS)}
    earlier = read_results(options.list) if options.list else {}
    mutants = [dict(zip(IDENTITY, what)) for what, result in earlier.items() if result["result"] in MEASURED]
    options.count = len(mutants) or options.count
    if not options.list:
        chance = random.Random(options.seed)
        mutants = [mutant for path, lines in tree.items() for mutant in faults.mutants_of(path, lines, chance)]
        chance.shuffle(mutants)

    os.makedirs(COPIES, exist_ok=True)
    alone = os.open(COPIES, os.O_RDONLY)
    try:
        fcntl.flock(alone, fcntl.LOCK_EX | fcntl.LOCK_NB)
    except BlockingIOError:
        sys.exit(f"mutants: another run is at work in {COPIES}")
    known = os.path.exists(options.out)
    if known and not options.resume:
        sys.exit(f"mutants: {options.out} is there already: go on with --resume, or take it away")
    results = read_results(options.out) if known else {}
    with open(options.out, "a", encoding="utf-8") as out, concurrent.futures.ThreadPoolExecutor(options.jobs) as pool:
        copies = [Copy(number, files) for number in range(options.jobs)]
        for copy in copies:
            copy.prepare()
        list(pool.map(Copy.check, copies))
        print(f"all pass without a mutant: {copies[0].told_order()}", file=sys.stderr, flush=True)
        work, jobs = Run(mutants, options.count, results, out), max(1, os.cpu_count() // options.jobs)
        try:
            for done in concurrent.futures.as_completed(pool.submit(work.work, copy, tree, jobs) for copy in copies):
                done.result()
        finally:
            work.waiting = iter(())  # the other jobs end with the mutant they are at
    report([results[key(mutant)] for mutant in mutants if key(mutant) in results], earlier, tree)


if __name__ == "__main__":
    try:
        main()
    except KeyboardInterrupt:
        sys.exit("mutants: interrupted; --resume goes on")
