#!/usr/bin/env bash
# Runs test programs under valgrind's memory check, leaks included; ends with 0 when it finds nothing.
# usage: scripts/valgrind.sh [PROGRAM...]     those of build/release/bin that draw nothing, when none is named
# Needs the package valgrind. What it says is kept in build/valgrind.
set -uo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$root"
command -v valgrind >/dev/null || { echo "valgrind: is not installed; it is in the package valgrind" >&2; exit 1; }

logs=build/valgrind
mkdir -p "$logs"
programs=("$@")
[ ${#programs[@]} -gt 0 ] || programs=(base_tests module_tests saving_tests fault_tests soak_tests)
scripts/build.sh release "${programs[@]}" || exit 1

# Everything is some fifty times slower: fewer random messages. Processes that are killed on purpose are left out: of
# them valgrind can only say that they freed nothing.
export GUI_SOAK_MESSAGES=${GUI_SOAK_MESSAGES:-20000}
failed=0
for program in "${programs[@]}"; do
  start=$SECONDS
  valgrind --leak-check=full --show-leak-kinds=definite,indirect,possible --errors-for-leak-kinds=definite,indirect,possible \
    --num-callers=40 --error-exitcode=99 --log-file="$logs/$program.%p.log" \
    "build/release/bin/$program" --gtest_brief=1 --gtest_filter=-*AProcessKilled* >"$logs/$program.out" 2>&1 </dev/null
  status=$?
  printf '%s: %s, %d s\n' "$program" "$([ $status -eq 0 ] && echo clean || echo "FAILED ($status), see $logs/$program.*")" \
    $((SECONDS - start))
  [ $status -eq 0 ] || failed=1
done
exit $failed
