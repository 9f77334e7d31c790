#!/usr/bin/env bash
# Builds the libFuzzer programs with clang in build/fuzz and runs each one
# for a bounded time on a copy of its seed corpus (the repository is left as
# it is). Exits non-zero when any of them finds something; the input that
# did it is kept under build/fuzz/findings/<target>/.
# Usage: scripts/fuzz.sh [seconds per target, default 30] [target ...]
set -euo pipefail
cd "$(dirname "$0")/.."
seconds="${1:-30}"
shift || true
targets=("$@")
[ ${#targets[@]} -gt 0 ] || targets=(link panel address number varset linekeys)

scripts/setup.sh build fuzz

launcher=()
command -v ccache >/dev/null && launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
cmake -S fuzz -B build/fuzz -G Ninja -DCMAKE_CXX_COMPILER=clang++ -DCMAKE_COMPILE_WARNING_AS_ERROR=ON \
    "${launcher[@]}" >/dev/null
cmake --build build/fuzz -j2 --target "${targets[@]/#/fuzz_}"

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
failed=()
for t in "${targets[@]}"; do
    mkdir -p "$work/$t" "build/fuzz/findings/$t"
    cp -r "fuzz/corpus/$t/." "$work/$t/" 2>/dev/null || true
    echo "=== fuzz_$t for ${seconds}s"
    if ! "build/fuzz/fuzz_$t" "$work/$t" -max_total_time="$seconds" -timeout=5 -rss_limit_mb=2048 \
            -artifact_prefix="build/fuzz/findings/$t/" -print_final_stats=1 >"$work/$t.log" 2>&1; then
        failed+=("$t")
        tail -40 "$work/$t.log"
    else
        grep -E "^(#[0-9]+ +DONE|stat::number_of_executed_units)" "$work/$t.log" || true
    fi
done
if [ ${#failed[@]} -gt 0 ]; then
    echo "Findings in: ${failed[*]} (inputs under build/fuzz/findings/)"
    exit 1
fi
echo "fuzz: ${#targets[@]} passed, 0 failed"
