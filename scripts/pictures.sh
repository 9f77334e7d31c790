#!/usr/bin/env bash
# Draws the demo's screens from scripted fp-demo runs and compares them with
# the pictures committed under docs/pictures/, so the README never shows a
# screen that no longer exists. Fails (and keeps the new pictures in
# build/artifacts/pictures/) when any differs.
# Usage: scripts/pictures.sh [--update] [BUILD_DIR]   (default build/default;
# --update writes the new pictures into docs/pictures/)
set -euo pipefail
cd "$(dirname "$0")/.."
update=0
[ "${1:-}" = "--update" ] && { update=1; shift; }
build=${1:-build/default}
demo=$build/examples/fp-demo
[ -x "$demo" ] || { echo "pictures: no $demo (build fp-demo first)" >&2; exit 1; }

out=build/artifacts/pictures
rm -rf "$out"
mkdir -p "$out"

# name, keys: each picture is one fresh demo unit with nothing stored.
pictures=(
    "main-menu|"
    "status|ENTER"
    "network-edit|DOWN ENTER DOWN ENTER RIGHT RIGHT RIGHT RIGHT UP"
    "display|DOWN DOWN ENTER"
)
status=0
for entry in "${pictures[@]}"; do
    name=${entry%%|*}
    keys=${entry#*|}
    "$demo" --db :memory: --log "$out/fp-demo.log" --keys "$keys" \
        --snapshot "$out/$name.png" >"$out/$name.txt"
    if [ "$update" -eq 1 ]; then
        cp "$out/$name.png" "docs/pictures/$name.png"
    elif ! cmp -s "$out/$name.png" "docs/pictures/$name.png"; then
        echo "pictures: docs/pictures/$name.png is stale; the demo now shows:" >&2
        cat "$out/$name.txt" >&2
        status=1
    fi
done
if [ "$status" -ne 0 ]; then
    echo "pictures: new ones are in $out; scripts/pictures.sh --update takes them" >&2
fi
exit "$status"
