#!/usr/bin/env bash
# One command for the whole test suite: installs what is missing, configures,
# builds and runs every test. Usage: scripts/test.sh [default|asan|tsan|release]
set -euo pipefail
cd "$(dirname "$0")/.."
preset="${1:-default}"

scripts/setup.sh build test browser
cmake --preset "$preset" >/dev/null
cmake --build --preset "$preset"
ctest --preset "$preset"
