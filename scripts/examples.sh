#!/usr/bin/env bash
# Builds every out-of-tree example under examples/ (each folder with its own
# CMakeLists.txt) against an installed fp, runs the screen test built with
# fp::testing and GoogleTest (from the system), then runs first-unit on a headless
# fp-panel from the same prefix: opens the settings screen, changes the fan
# mode, and checks what the panel showed and what the unit stored, also after
# a restart.
# Usage: scripts/examples.sh PREFIX     (e.g. build/stage, or /usr)
set -euo pipefail
[ $# -eq 1 ] || { echo "usage: $0 PREFIX" >&2; exit 2; }
prefix=$(cd "$1" && pwd)
cd "$(dirname "$0")/.."
panel=$prefix/bin/fp-panel
[ -x "$panel" ] || { echo "examples: no fp-panel in $prefix/bin" >&2; exit 1; }

work=$(mktemp -d /tmp/fp-examples.XXXXXX)
pids=()
cleanup() {
    for pid in "${pids[@]}"; do kill "$pid" 2>/dev/null || true; done
    rm -rf "$work"
}
trap cleanup EXIT

# Installed programs should find their libraries by themselves; until they
# all do, point the loader at the prefix rather than fail here.
needs_path() { ldd "$1" 2>/dev/null | grep -q 'not found'; }

generator=()
command -v ninja >/dev/null && generator=(-G Ninja)
for dir in examples/*/; do
    name=$(basename "$dir")
    [ -f "$dir/CMakeLists.txt" ] || continue
    echo "--- building $name against $prefix"
    cmake -S "$dir" -B "$work/$name" "${generator[@]}" -DCMAKE_PREFIX_PATH="$prefix" \
        -DCMAKE_CXX_FLAGS=-Werror >/dev/null
    cmake --build "$work/$name" -j2 >/dev/null
done

unit=$work/first-unit/first-unit
if needs_path "$panel" || needs_path "$unit"; then
    lib=$(dirname "$(find "$prefix" -name 'libfp.so.0' -print -quit)")
    echo "examples: the installed programs do not find their libraries; using $lib"
    export LD_LIBRARY_PATH=$lib${LD_LIBRARY_PATH:+:$LD_LIBRARY_PATH}
fi
if [ -x "$work/screen-test/screen-test" ]; then
    echo "--- running screen-test"
    "$work/screen-test/screen-test"
fi
if [ -x "$work/consumer/fp-consumer" ]; then
    echo "--- running consumer"
    "$work/consumer/fp-consumer"
fi

sock=$work/panel.sock
db=$work/settings.db

# One session: fp-panel fed the given commands (after the unit has
# connected, one every $pause seconds), first-unit on it until the panel
# quits. Leaves the panel's dumps in $work/$1.panel, the unit's exit report
# in $work/$1.unit.
pause=1.5
session() {
    local tag=$1
    shift
    rm -f "$sock"
    mkfifo "$work/$tag.in"
    "$panel" --listen "unix:$sock" --headless --ascii <"$work/$tag.in" \
        >"$work/$tag.panel" 2>"$work/$tag.err" &
    local panel_pid=$!
    pids+=("$panel_pid")
    exec 3>"$work/$tag.in"
    for _ in $(seq 100); do [ -S "$sock" ] && break; sleep 0.1; done
    "$unit" --panel "unix:$sock" --db "$db" --until-panel-quits >"$work/$tag.unit" 2>"$work/$tag.unit-err" &
    local unit_pid=$!
    pids+=("$unit_pid")
    for _ in $(seq 100); do grep -q 'unit connected' "$work/$tag.err" && break; sleep 0.1; done
    for command in "$@"; do
        sleep "$pause"
        echo "$command" >&3
    done
    sleep "$pause"
    echo quit >&3
    exec 3>&-
    wait "$panel_pid"
    # The unit leaves by itself once the panel has hung up.
    for _ in $(seq 100); do kill -0 "$unit_pid" 2>/dev/null || break; sleep 0.1; done
    local status=0
    if kill -0 "$unit_pid" 2>/dev/null; then
        echo "examples: first-unit still runs after the panel quit" >&2
        status=124
    else
        wait "$unit_pid" || status=$?
    fi
    if [ "$status" -ne 0 ]; then
        echo "examples: first-unit did not exit cleanly ($status)" >&2
        cat "$work/$tag.unit-err" >&2
        exit 1
    fi
}

# Prints the Nth (1-based) display dump of a panel log.
dump() { awk -v n="$2" '/^\+-/{ if (++b == 2*n-1) on=1 } on{ print } /^\+-/{ if (b == 2*n) on=0 }' "$1"; }

expect() {  # file, text, what
    if ! grep -qF -- "$2" "$1"; then
        echo "examples: $3: \"$2\" not found in:" >&2
        cat "$1" >&2
        exit 1
    fi
}

echo "--- first-unit on a headless fp-panel"
# Status; Enter opens Settings; Down to Fan; Enter edits; Up: Auto -> Quiet;
# Enter stores; Esc back to Status.
session edit dump ENTER DOWN dump ENTER UP ENTER EXIT dump
dump "$work/edit.panel" 1 >"$work/status1"
dump "$work/edit.panel" 2 >"$work/settings"
dump "$work/edit.panel" 3 >"$work/status2"
expect "$work/status1" "Status" "status screen"
expect "$work/status1" "Name:unit-1" "status screen"
expect "$work/status1" "Fan:Auto" "status screen"
expect "$work/settings" "Settings" "settings screen"
expect "$work/settings" ">Fan:Auto" "settings screen, cursor on Fan"
expect "$work/status2" "Fan:Quiet" "status screen after the edit"
expect "$work/edit.unit" "fan.mode=2" "value stored by the edit"
cat "$work/status2"

echo "--- first-unit again: the setting survived"
session again dump
dump "$work/again.panel" 1 >"$work/status3"
expect "$work/status3" "Fan:Quiet" "status screen after a restart"
expect "$work/again.unit" "fan.mode=2" "value after a restart"
echo "examples: all passed"
