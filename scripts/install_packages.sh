#!/usr/bin/env bash
# Installs those packages of the given lists that are not there yet. Needs root or sudo only when one is missing.
# usage: scripts/install_packages.sh LIST...
set -euo pipefail

fail() {
  echo "install_packages: $*" >&2
  exit 1
}

[ $# -gt 0 ] || fail "no package list given"
wanted=()
for list in "$@"; do
  [ -r "$list" ] || fail "cannot read $list"
  while read -r name _; do
    case $name in "" | "#"*) ;; *) wanted+=("$name") ;; esac
  done <"$list"
done

if ! command -v dpkg-query >/dev/null || ! command -v apt-get >/dev/null; then
  echo "install_packages: this is no Debian system; these packages, or their like, are needed: ${wanted[*]}" >&2
  exit 0
fi

declare -A present=()
while read -r status name; do
  [ "$status" = installed ] && present[$name]=1
done < <(dpkg-query --show --showformat='${db:Status-Status} ${Package}\n')
missing=()
for name in "${wanted[@]}"; do
  [ -n "${present[$name]:-}" ] || missing+=("$name")
done
[ ${#missing[@]} -gt 0 ] || exit 0

become_root=()
if [ "$(id -u)" -ne 0 ]; then
  command -v sudo >/dev/null || fail "neither root nor sudo here; ask your administrator to install: ${missing[*]}"
  become_root=(sudo)
  [ -t 0 ] || become_root=(sudo -n)
fi

log=$(mktemp)
trap 'rm -f "$log"' EXIT
apt() {
  "${become_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -qq -y -o DPkg::Lock::Timeout=300 \
    -o Dpkg::Use-Pty=0 "$@" >>"$log" 2>&1 </dev/null
}

echo "installing: ${missing[*]}" >&2
if ! { apt update && apt install --no-install-recommends "${missing[@]}"; }; then
  tail -n 15 "$log" >&2
  fail "could not install: ${missing[*]}"
fi
