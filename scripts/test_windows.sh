#!/usr/bin/env bash
# Runs the tests of the preset `windows` under Wine, on a screen that nobody sees. The programs' reports are written to
# build/windows/reports. usage: scripts/test_windows.sh [OPTION OF CTEST...]
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

if [ "${1:-}" != --on-screen ]; then
  rm -rf build/windows/reports
  exec xvfb-run --auto-servernum --server-args "-screen 0 1280x1024x24" scripts/test_windows.sh --on-screen "$@"
fi
shift

# While one program waits, the others start in no time.
scripts/wine.sh wineboot
scripts/wine.sh cmd /c ping -n 600 127.0.0.1 >/dev/null &
waiting=$!
trap 'kill $waiting; scripts/wine.sh wineboot --kill; wait' EXIT
ctest --preset windows "$@"
