#!/usr/bin/env bash
# Installs the Debian packages of the given groups of scripts/packages.txt
# (default: build and test). Packages already present are not fetched again.
# Usage: scripts/setup.sh [GROUP...]      install those groups
#        scripts/setup.sh --list GROUP... print their packages, install nothing
set -euo pipefail
list="$(dirname "$0")/packages.txt"

only_list=0
if [ "${1:-}" = "--list" ]; then
    only_list=1
    shift
fi
groups=("$@")
[ ${#groups[@]} -gt 0 ] || groups=(build test)

packages=()
for g in "${groups[@]}"; do
    found=$(sed -e 's/#.*//' "$list" | awk -v g="$g:" '$1 == g { for (i = 2; i <= NF; i++) print $i }')
    if [ -z "$found" ]; then
        echo "setup.sh: no package group '$g' in $list" >&2
        exit 2
    fi
    mapfile -t -O "${#packages[@]}" packages <<<"$found"
done

if [ "$only_list" -eq 1 ]; then
    printf '%s\n' "${packages[@]}"
    exit 0
fi

# chromedriver reaches the browser it starts at "localhost"; a bare system
# root (debootstrap, a container) may have no /etc/hosts to resolve it.
if [[ " ${groups[*]} " == *" browser "* ]] && ! getent hosts localhost >/dev/null; then
    if [ "$(id -u)" -eq 0 ]; then
        printf '127.0.0.1\tlocalhost\n::1\tlocalhost\n' >>/etc/hosts
    else
        echo "setup.sh: the name localhost does not resolve; the browser test needs it" >&2
    fi
fi

missing=()
for p in "${packages[@]}"; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
[ ${#missing[@]} -gt 0 ] || exit 0

SUDO=""
[ "$(id -u)" -eq 0 ] || SUDO="sudo"
echo "Installing: ${missing[*]}"
# A fresh machine may have no package lists at all; a stale one may point at
# versions the mirror no longer has.
$SUDO apt-get update -qq
DEBIAN_FRONTEND=noninteractive $SUDO apt-get install -y -qq --no-install-recommends "${missing[@]}"
