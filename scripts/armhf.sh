#!/usr/bin/env bash
# Cross-compiles everything for 32-bit ARM and runs the whole test suite under
# qemu-arm. Installs the cross toolchain and qemu from Debian, and builds a
# sysroot from Debian's armhf library packages (downloaded with apt-get
# download and unpacked, since mixing architectures through apt fails when the
# two archives' versions differ). Usage: scripts/armhf.sh [--no-test]
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/setup.sh
need=()
for p in g++-arm-linux-gnueabihf qemu-user googletest; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || need+=("$p")
done
if [ ${#need[@]} -gt 0 ]; then
    apt-get update -qq
    DEBIAN_FRONTEND=noninteractive apt-get install -y -qq "${need[@]}"
fi

sysroot=build/armhf-sysroot
packages=(liblog4cpp5-dev liblog4cpp5v5 libsqlite3-dev libsqlite3-0
          libncurses-dev libncurses6 libncursesw6 libtinfo6
          libpng-dev libpng16-16 zlib1g-dev zlib1g)
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
