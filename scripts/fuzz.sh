#!/usr/bin/env bash
# Looks for inputs that do harm: with one fuzz program, or with all in turn.
# usage: scripts/fuzz.sh NAME|all [SECONDS]    each; 60 without
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$root"
all=$(cd fuzz/corpus && echo *)
case "${1:-}" in
  all) names=$all ;;
  *)
    names=${1:-}
    if [ -z "$names" ] || [ ! -d "fuzz/corpus/$names" ]; then
      echo "usage: scripts/fuzz.sh NAME|all [SECONDS]" >&2
      echo "names: $all" >&2
      exit 2
    fi
    ;;
esac
seconds=${2:-60}

targets=()
for name in $names; do targets+=("fuzz_$name"); done
scripts/build.sh asan "${targets[@]}"

status=0
for name in $names; do
  grown=build/asan/fuzz/corpus/$name findings=build/asan/fuzz/findings
  mkdir -p "$grown" "$findings"
  started=$(mktemp)
  printf '==> %s, %s s\n' "$name" "$seconds"
  if ! "build/asan/bin/fuzz_$name" -timeout=5 -rss_limit_mb=1024 -len_control=0 -print_final_stats=1 -max_total_time="$seconds" \
    -dict="fuzz/dictionaries/$name.dict" -artifact_prefix="$findings/$name-" "$grown" "fuzz/corpus/$name"; then
    status=1
    find "$findings" -name "$name-*" -newer "$started" | while read -r finding; do
      echo "found:  $finding"
      echo "replay: build/asan/bin/fuzz_$name $finding"
    done
  fi
  rm -f "$started"
done
exit $status
