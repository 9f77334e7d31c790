#!/usr/bin/env bash
# Builds the API reference from the headers an install ships (internal/
# folders left out) into build/docs/html. Any doxygen warning fails the run,
# an undocumented public class or operation included; the count and the
# first of them are printed. Usage: scripts/docs.sh
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/setup.sh docs

FP_VERSION=$(sed -n 's/^project(fp VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
export FP_VERSION
rm -rf build/docs
mkdir -p build/docs
log=build/docs/warnings.log
rc=0
doxygen docs/Doxyfile || rc=$?

# With warnings as errors doxygen words them "error:".
# A base class's undocumented member is reported once per derived class, so
# the distinct ones are what there is to fix.
grep -E ':[0-9]+: (warning|error):' "$log" | sed "s|^$PWD/||" | sort -u >build/docs/distinct.log || true
count=$(wc -l <build/docs/distinct.log)
echo "docs: doxygen $(doxygen --version), $count distinct warning(s)," \
    "$(grep -cE ':[0-9]+: (warning|error):' "$log" || true) in all;" \
    "reference in build/docs/html/index.html"
if [ "$count" -gt 0 ]; then
    echo "--- distinct warnings by file"
    cut -d: -f1 build/docs/distinct.log | uniq -c | sort -rn | head -30
    echo "--- first warnings (all of them in build/docs/distinct.log)"
    head -20 build/docs/distinct.log
fi
if [ "$rc" -ne 0 ] || [ "$count" -gt 0 ]; then
    exit 1
fi
