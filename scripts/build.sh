#!/usr/bin/env bash
# Configures a preset where needed and builds it. Says nothing when nothing was to do.
# usage: scripts/build.sh PRESET [TARGET...]
set -euo pipefail

preset=${1:?no preset given}
shift
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$root"
folder=build/$preset
stamp=$folder/configured
mkdir -p "$folder"

# Ninja looks after changed CMake files by itself, but does not know the presets.
if [ ! -e "$stamp" ] || [ CMakePresets.json -nt "$stamp" ] || [ ! -e "$folder/build.ninja" ]; then
  echo "configuring $folder" >&2
  rm -f "$stamp"
  if ! cmake --preset "$preset" >"$folder/configure.log" 2>&1 </dev/null; then
    cat "$folder/configure.log" >&2
    echo "build: configuring $preset failed" >&2
    exit 1
  fi
  touch "$stamp"
fi

# Ninja's progress, on one line of a terminal and in steps of a tenth elsewhere; all else passes as it is.
terminal=0
[ -t 2 ] && terminal=1
progress() {
  awk -v terminal="$terminal" '
    function finish() { if (open) { printf "\n"; open = 0 } }
    /^ninja: no work to do/ || /Re-checking globbed directories/ || /^-- / { next }
    match($0, /^\[[0-9]+\/[0-9]+\]/) {
      split(substr($0, 2, RLENGTH - 2), at, "/")
      if (terminal) {
        printf "\r\033[K%s", substr($0, 1, 100); open = 1
      } else if (at[2] < 10 || int(10 * at[1] / at[2]) != tenth) {
        print
      }
      tenth = int(10 * at[1] / at[2])
      fflush(); next
    }
    { finish(); print; fflush() }
    END { finish() }'
}

targets=()
[ $# -eq 0 ] || targets=(--target "$@")
if ! cmake --build "$folder" "${targets[@]}" </dev/null 2>&1 | progress >&2; then
  echo "build: building $preset failed, see the lines above" >&2
  exit 1
fi
