#!/bin/sh
# Runs an fp-panel script against fp-demo over a Unix socket, the way a
# team's CI would run one against its own unit. Exits with fp-panel's status.
# Usage: run-demo-script.sh FP_PANEL FP_DEMO SCRIPT [fp-panel options...]
# FP_RUN, when set, goes in front of both programs (an emulator for a cross build).
set -eu
panel=$1
demo=$2
script=$3
shift 3
dir=$(mktemp -d)
unit=
trap '[ -n "$unit" ] && kill "$unit" 2>/dev/null; wait 2>/dev/null; rm -rf "$dir"' EXIT
# The unit retries until the panel listens, and stays up (WAIT) until the
# script is done; no need to start them in any order or to sleep.
${FP_RUN:-} "$demo" --db :memory: --log "$dir/demo.log" --panel "unix:$dir/panel.sock" \
    --keys "WAIT 600000" >"$dir/demo.out" 2>&1 &
unit=$!
${FP_RUN:-} "$panel" --listen "unix:$dir/panel.sock" --script "$script" "$@"
