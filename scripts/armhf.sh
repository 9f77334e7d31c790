#!/usr/bin/env bash
# Cross-compiles everything for 32-bit ARM and runs the whole test suite under
# qemu-arm. Installs the cross toolchain and qemu from Debian, and builds a
# sysroot from Debian's armhf library packages (downloaded with apt-get
# download and unpacked, since mixing architectures through apt fails when the
# two archives' versions differ). Usage: scripts/armhf.sh [--no-test]
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/setup.sh build armhf

sysroot=build/armhf-sysroot
mapfile -t packages < <(scripts/setup.sh --list armhf-sysroot)
# The marker holds the package list, so a sysroot unpacked for an older list
# is made again.
if [ "$(cat "$sysroot/.complete" 2>/dev/null)" != "${packages[*]}" ]; then
    dpkg --print-foreign-architectures | grep -qx armhf || dpkg --add-architecture armhf
    apt-get update -qq || true  # a mirror without armhf lists still serves the rest
    rm -rf "$sysroot" build/armhf-debs
    mkdir -p "$sysroot" build/armhf-debs
    (cd build/armhf-debs && for p in "${packages[@]}"; do apt-get download -q "$p:armhf"; done)
    for deb in build/armhf-debs/*.deb; do dpkg -x "$deb" "$sysroot"; done
    # Development symlinks that point at absolute paths (libtinfo.so ->
    # /lib/...) would resolve on the build machine, or not at all, and the
    # linker would fall back to a static copy: point them into the sysroot.
    find "$sysroot" -type l -lname '/*' | while read -r link; do
        ln -sfn "$(realpath -m "$sysroot")$(readlink "$link")" "$link"
    done
    echo "${packages[*]}" >"$sysroot/.complete"
fi

cmake --preset armhf >/dev/null
cmake --build --preset armhf
if [ "${1:-}" != "--no-test" ]; then
    ctest --preset armhf
fi

echo "=== stripped sizes (armhf)"
tmp=$(mktemp -d)
trap 'rm -rf "$tmp"' EXIT
for lib in libkttools.so libtov.so libfp.so; do
    arm-linux-gnueabihf-strip -o "$tmp/$lib" "build/armhf/$lib"
    printf '%-14s %8d bytes\n' "$lib" "$(stat -c %s "$tmp/$lib")"
done
