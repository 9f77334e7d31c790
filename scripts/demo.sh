#!/usr/bin/env bash
# One command from a fresh checkout to a running demo unit: installs what is
# missing, builds fp-demo and fp-panel, then starts fp-demo with the panel
# emulator in-process (interactive in a terminal, a guided tour elsewhere).
# Arguments go to fp-demo, e.g. scripts/demo.sh --db :memory:
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/setup.sh build test >&2
cmake --preset default >/dev/null
cmake --build --preset default --target fp-demo fp-panel >&2
exec build/default/examples/fp-demo "$@"
