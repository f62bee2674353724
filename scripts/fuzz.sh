#!/usr/bin/env bash
# Looks for inputs that do harm: with one fuzz program, or with all in turn, and prints a line for each.
# usage: scripts/fuzz.sh NAME|all [SECONDS | --runs N]    each; 60 seconds without
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$root"
all=$(cd fuzz/corpus && echo *)
names=${1:-}
[ "$names" != all ] || names=$all
limit=-max_total_time=${2:-60}
[ "${2:-}" != --runs ] || limit=-runs=${3:-}
if [[ -z $names || ! $limit =~ =[0-9]+$ ]] || ! (cd fuzz/corpus && ls -d $names >/dev/null 2>&1); then
  sed -n '3s/^# //p' "$0" >&2
  echo "names: $all" >&2
  exit 2
fi

targets=()
for name in $names; do targets+=("fuzz_$name"); done
scripts/build.sh asan "${targets[@]}"

stat() { sed -n "s/^stat::$1: *//p" "$log"; }

work=build/asan/fuzz found=0 sum=0
mkdir -p $work/findings $work/logs
printf '%-12s %14s %14s %9s\n' program executions "a second" findings
for name in $names; do
  log=$work/logs/$name.log grown=$work/corpus/$name
  mkdir -p "$grown"
  options=(-timeout=20 -rss_limit_mb=1024 -max_len=256 -entropic=0 -print_funcs=0 -print_final_stats=1
    "-dict=fuzz/dictionaries/$name.dict" "-artifact_prefix=$work/findings/$name-")
  case $name in
    page) options+=(-max_len=512) ;;
    pages) options+=(-max_len=512 -detect_leaks=0) ;;   # the last two are looked through for leaks at the end, since the
    scene) options+=(-max_len=2048 -detect_leaks=0) ;;  # texts that an engine keeps look like some to libFuzzer
  esac
  status=0
  "build/asan/bin/fuzz_$name" "${options[@]}" "$limit" "$grown" "fuzz/corpus/$name" >"$log" 2>&1 || status=1
  executions=$(stat number_of_executed_units)
  printf '%-12s %14d %14d %9d\n' "$name" "${executions:-0}" "$(stat average_exec_per_sec)" $status
  found=$((found + status)) sum=$((sum + ${executions:-0}))
  [ $status -eq 0 ] || {
    echo "  log:    $log"
    sed -n "s|.*written to \(.*/$name-.*\)|  replay: build/asan/bin/fuzz_$name \1|p" "$log"
  }
done
printf '%-12s %14d %14s %9d\n' total $sum "" $found
[ $found -eq 0 ]
