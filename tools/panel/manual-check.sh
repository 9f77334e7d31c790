#!/bin/sh
# Look at fp-panel's curses screen without a terminal of your own: runs it in
# a detached tmux session, plays a unit that draws a menu, presses a few keys
# and prints the pane. For people, not for CI.
# Usage: tools/panel/manual-check.sh [path/to/fp-panel]
set -e
exe=${1:-build/default/tools/fp-panel}
sock=/tmp/fp-panel-manual.$$.sock
session=fp-panel-manual-$$
tmux new-session -d -s "$session" -x 100 -y 30 "LANG=C.UTF-8 $exe --listen unix:$sock"
trap 'tmux kill-session -t "$session" 2>/dev/null; rm -f "$sock"' EXIT
sleep 0.5
python3 - "$sock" <<'PY' &
import socket, sys, time
s = socket.socket(socket.AF_UNIX)
s.connect(sys.argv[1])
def frame(op, payload=b""):
    out = bytearray([0x09, ord(op)])
    for b in payload:
        out += bytes([0x7D, b ^ 0x20]) if b in (0x09, 0x7D, 0x7E) else bytes([b])
    return bytes(out + b"\x7e")
s.recv(16)
s.send(frame("T", b"Main menu \x7f") + frame("R", b"\x01") + frame("X", b"\x00") +
       frame("Y", b"\x01") + frame("T", b"> Network") + frame("R", b"\x02") +
       frame("X", b"\x00") + frame("Y", b"\x02") + frame("T", b"  Date \x84 \x85 \x8a") +
       frame("L", b"\x01\x01") + frame("U", b"\x03") + frame("E", b"\x01") + frame("P", b"\x0a\x03"))
s.settimeout(3)
end, got = time.time() + 3, b""
while time.time() < end:
    try:
        got += s.recv(4096)
    except socket.timeout:
        break
print("unit received:", got)
PY
# Python can take a while to start; go on once the screen shows the unit.
for _ in 1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18 19 20; do
    tmux capture-pane -t "$session" -p | grep -q "unit connected on" && break
    sleep 0.25
done
sleep 0.3
tmux send-keys -t "$session" Down Enter F2 F6 a
sleep 0.5
tmux capture-pane -e -t "$session" -p
wait
tmux send-keys -t "$session" C-q
