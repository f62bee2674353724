#!/usr/bin/env bash
# Runs a Windows program under Wine, in a Windows of its own that is made in build/windows when it is not there yet.
# usage: scripts/wine.sh PROGRAM [ARGUMENT...]
set -euo pipefail

build=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)/build/windows
PATH=$PATH:/usr/lib/wine
export WINEPREFIX=$build/wine WINEDEBUG=-all WINEDLLOVERRIDES=mscoree,mshtml= WINESERVER
WINESERVER=$(command -v wineserver64 || command -v wineserver) || { echo "wine.sh: no Wine here" >&2; exit 1; }

if [ ! -e "$WINEPREFIX/made" ]; then
  rm -rf "$WINEPREFIX"
  env -u DISPLAY wine64 wineboot --init >"$build/wineboot.log" 2>&1 </dev/null
  "$WINESERVER" --wait
  touch "$WINEPREFIX/made"
fi

# By way of a file: the system's programs that are started on the side would hold a pipe open.
output=$(mktemp)
trap 'rm -f "$output"' EXIT
status=0
wine64 "$@" >"$output" 2>&1 </dev/null || status=$?
cat "$output"
exit $status
