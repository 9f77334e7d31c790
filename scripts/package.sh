#!/usr/bin/env bash
# Builds the release configuration (preset "package": release without tests), installs it into a staging prefix, makes the
# Debian package, and builds and runs examples/consumer against both the
# staging tree and (as root) the installed package.
# Usage: scripts/package.sh [--no-system]   (--no-system skips dpkg -i;
# FP_KEEP_PACKAGE=1 leaves the package installed)
set -euo pipefail
cd "$(dirname "$0")/.."
root=$PWD
build=$root/build/package
stage=$root/build/stage
system=1
[ "${1:-}" = "--no-system" ] && system=0

scripts/setup.sh build package

cmake --preset package >/dev/null
cmake --build --preset package

rm -rf "$stage"
cmake --install "$build" --prefix "$stage" >/dev/null
(cd "$build" && cpack -G DEB >/dev/null)
deb=$(ls -t "$build"/libfp-dev_*.deb | head -1)
echo "package: $deb"

consumer() {  # name, extra cmake args...
    local dir=$root/build/consumer-$1
    shift
    rm -rf "$dir"
    cmake -S examples/consumer -B "$dir" -G Ninja "$@" >/dev/null
    cmake --build "$dir" -j2 >/dev/null
    "$dir/fp-consumer"
}

echo "--- consumer against $stage"
LD_LIBRARY_PATH="$stage/lib" consumer stage -DCMAKE_PREFIX_PATH="$stage"
PKG_CONFIG_PATH="$stage/lib/pkgconfig" pkg-config --cflags --libs fp

if [ "$system" -eq 1 ] && [ "$(id -u)" -eq 0 ]; then
    echo "--- consumer against the installed package"
    dpkg -i "$deb" >/dev/null
    consumer deb
    pkg-config --cflags --libs fp
    c++ -std=c++17 examples/consumer/main.cpp $(pkg-config --cflags --libs fp) \
        -o "$root/build/consumer-pc" && "$root/build/consumer-pc"
    # The machine is shared: leave no copy of the library in /usr behind.
    [ -n "${FP_KEEP_PACKAGE:-}" ] || dpkg -P libfp-dev >/dev/null
else
    echo "--- skipping the system install (needs root; --no-system given?)"
fi
