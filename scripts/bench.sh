#!/usr/bin/env bash
# Builds the release preset's benchmark programs and runs them all, then
# prints the machine, its load and the stripped sizes of the libraries:
# everything docs/performance.md reports, from one command.
# Usage: scripts/bench.sh [--quick]
#   --quick  runs every benchmark only briefly (keeps them from rotting in CI;
#            the figures are not meant to be read)
# FP_BENCH_DIR picks the directory (file system) for the SQLite files;
# FP_BENCH_PRESSES how many key presses each key-to-glass figure takes.
set -euo pipefail
cd "$(dirname "$0")/.."

min_time=0.5
idle=3
presses=${FP_BENCH_PRESSES:-100}
if [ "${1:-}" = "--quick" ]; then
    min_time=0.01
    idle=0.3
    presses=2
fi

scripts/setup.sh build test bench
programs=(fp_bench_link fp_bench_draw fp_bench_data fp_bench_idle fp_bench_key_to_glass)
cmake --preset release >/dev/null
cmake --build --preset release -j2 --target "${programs[@]}" fp tov kttools

echo "=== machine"
lscpu | grep -E '^(Model name|Architecture|CPU\(s\)|Thread|Core|Socket|CPU max MHz|L2|L3)' || true
echo "kernel: $(uname -r)   load: $(cut -d' ' -f1-3 /proc/loadavg)"
echo "scratch file system: $(df -T "${FP_BENCH_DIR:-${TMPDIR:-/tmp}}" | awk 'NR==2 {print $2}')"

for p in "${programs[@]}"; do
    echo "=== $p"
    FP_BENCH_IDLE_SECONDS="$idle" FP_BENCH_PRESSES="$presses" "build/release/bench/$p" --benchmark_min_time="$min_time" \
        --benchmark_counters_tabular=false
done
echo "load after: $(cut -d' ' -f1-3 /proc/loadavg)"

echo "=== stripped sizes (x86-64, release)"
tmp=$(mktemp -d)
trap 'rm -rf "$tmp"' EXIT
for lib in libkttools.so libtov.so libfp.so; do
    strip -o "$tmp/$lib" "build/release/$lib"
    printf '%-14s %8d bytes\n' "$lib" "$(stat -c %s "$tmp/$lib")"
done
