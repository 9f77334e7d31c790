#!/usr/bin/env bash
# Builds the release configuration (preset "package": release without tests),
# installs it into a fresh staging prefix, makes the Debian package, and checks
# both the prefix and (as root) the installed package the way a user meets
# them: the installed programs start with no LD_LIBRARY_PATH, out-of-tree
# programs build with CMake alone and with pkg-config alone and run, no
# internal/ header is installed, and the package declares what it depends on.
# Usage: scripts/package.sh [--no-system]   (--no-system skips dpkg -i;
# FP_KEEP_PACKAGE=1 leaves the package installed)
set -euo pipefail
cd "$(dirname "$0")/.."
root=$PWD
build=$root/build/package
stage=$root/build/stage
system=1
[ "${1:-}" = "--no-system" ] && system=0

scripts/setup.sh build test package  # test: GoogleTest for the out-of-tree screen test

cmake --preset package >/dev/null
cmake --build --preset package

rm -rf "$stage"
cmake --install "$build" --prefix "$stage" >/dev/null
(cd "$build" && cpack -G DEB >/dev/null)
deb=$(ls -t "$build"/libfp-dev_*.deb | head -1)
echo "package: $deb"

fail() {
    echo "package.sh: $*" >&2
    exit 1
}

# Nothing here may lean on the caller's loader path.
unset LD_LIBRARY_PATH

check_headers() {  # installed paths, one per line, on stdin (folders end in /)
    local bad
    bad=$(awk '/\/include\// && !/\/$/ && (/\/internal\// || !/\.h$/)')
    [ -z "$bad" ] || fail "headers that are not for users are installed:"$'\n'"$bad"
}

check_prefix() {  # prefix, name for the build folders
    local prefix=$1 name=$2
    echo "--- $prefix"
    "$prefix/bin/fp-panel" --help >/dev/null || fail "$prefix/bin/fp-panel does not start"
    "$prefix/bin/fp-demo" --help >/dev/null || fail "$prefix/bin/fp-demo does not start"
    echo "fp-panel and fp-demo start"

    local dir=$root/build/consumer-$name
    rm -rf "$dir"
    cmake -S examples/consumer -B "$dir" -G Ninja -DCMAKE_PREFIX_PATH="$prefix" \
        -DCMAKE_COMPILE_WARNING_AS_ERROR=ON >/dev/null
    cmake --build "$dir" -j2 >/dev/null
    "$dir/fp-consumer"
    "$dir/fp-only"

    # pkg-config alone: its flags and nothing else, plus the run path a user
    # of a private prefix gives (a system prefix needs none).
    local pc libdir rpath=()
    pc=$(dirname "$(find "$prefix/lib" -name fp.pc -path '*/pkgconfig/*' | head -1)")
    libdir=$(PKG_CONFIG_PATH=$pc pkg-config --variable=libdir fp)
    [ "$prefix" = /usr ] || rpath=("-Wl,-rpath,$libdir")
    mkdir -p "$dir/pc"
    local flags
    flags=$(PKG_CONFIG_PATH=$pc pkg-config --cflags --libs fp)
    echo "pkg-config: $flags"
    # shellcheck disable=SC2086  # the flags are words by design
    c++ -std=c++17 -Wall -Wextra -Werror examples/consumer/main.cpp $flags "${rpath[@]}" \
        -o "$dir/pc/fp-consumer"
    # shellcheck disable=SC2086
    c++ -std=c++17 -Wall -Wextra -Werror examples/consumer/fp_only.cpp -Wl,--as-needed $flags \
        "${rpath[@]}" -o "$dir/pc/fp-only"
    "$dir/pc/fp-consumer"
    "$dir/pc/fp-only"

    if [ -x scripts/examples.sh ]; then
        scripts/examples.sh "$prefix"
    fi
}

find "$stage/include" -type f | check_headers
check_prefix "$stage" stage

echo "--- $deb"
depends=$(dpkg-deb -f "$deb" Depends)
echo "Depends: $depends"
# libc6 only appears when dpkg-shlibdeps read the binaries.
for lib in libc6 libstdc++6 liblog4cpp5v5 libsqlite3-0; do
    grep -q "$lib" <<<"$depends" || fail "the package does not depend on $lib"
done
dpkg-deb -c "$deb" | awk '{print $NF}' | check_headers

if [ "$system" -eq 1 ] && [ "$(id -u)" -eq 0 ]; then
    dpkg -i "$deb" >/dev/null
    # The machine is shared: leave no copy of the library in /usr behind.
    [ -n "${FP_KEEP_PACKAGE:-}" ] || trap 'dpkg -P libfp-dev >/dev/null' EXIT
    check_prefix /usr deb
else
    echo "--- skipping the system install (needs root; --no-system given?)"
fi
echo "package: all checks passed"
