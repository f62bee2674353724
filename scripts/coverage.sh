#!/usr/bin/env bash
# Tells which lines of the module and of base/ no test runs: a table of the folders, then the lines.
# usage: scripts/coverage.sh
# Needs the package llvm. Builds with the preset coverage, and runs all its tests.
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$root"
for tool in llvm-profdata llvm-cov; do
  command -v $tool >/dev/null || { echo "coverage: $tool is not installed; it is in the package llvm" >&2; exit 1; }
done

build=$root/build/coverage
profiles=$build/profiles
scripts/build.sh coverage
rm -rf "$profiles"
mkdir -p "$profiles"
ctest --preset coverage --parallel "$(nproc)" >"$build/tests.log" 2>&1 ||
  { tail -n 50 "$build/tests.log"; echo "coverage: tests failed, their lines count all the same" >&2; }

llvm-profdata merge -sparse "$profiles"/*.profraw -o "$build/coverage.profdata"
llvm-cov export -format=lcov -instr-profile="$build/coverage.profdata" -object "$build/lib/gui.so" \
  -object "$build/lib/libbase.so" >"$build/coverage.lcov"
python3 scripts/coverage_report.py "$build/coverage.lcov"
