#!/usr/bin/env bash
# Installs every Debian package that building and testing the project needs.
# Safe to run again: packages already present are not fetched twice.
set -euo pipefail

PACKAGES=(
    cmake ninja-build g++ ccache pkg-config git
    liblog4cpp5-dev libsqlite3-dev sqlite3 libncurses-dev libpng-dev
    libgtest-dev libgmock-dev libbenchmark-dev
    libcivetweb-dev chromium chromium-driver
    tmux
)

missing=()
for p in "${PACKAGES[@]}"; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
if [ ${#missing[@]} -gt 0 ]; then
    SUDO=""
    [ "$(id -u)" -eq 0 ] || SUDO="sudo"
    echo "Installing: ${missing[*]}"
    $SUDO apt-get update -qq
    DEBIAN_FRONTEND=noninteractive $SUDO apt-get install -y -qq "${missing[@]}"
fi
