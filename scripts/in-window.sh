#!/usr/bin/env bash
# Runs the real program from build/bin under Xvfb on a plan, waits for its window, runs the
# given shell commands with the window's id in $window, and leaves through the menu (Fil,
# Avslutt), answering "Nei" if it asks whether to save a changed plan. The program runs from
# a folder of its own, so its settings file lands there.
# Usage: scripts/in-window.sh PLAN.tvl 'COMMANDS'
set -euo pipefail
cd "$(dirname "$0")/.."
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cp build/bin/tavlero "$work/"

cat >"$work/inside.sh" <<'INSIDE'
set -euo pipefail
"$1" "$2" &
pid=$!
for _ in $(seq 150); do
  window=$(xdotool search --onlyvisible --name '^Tavlero$' 2>/dev/null | head -n 1) && [[ -n $window ]] && break
  sleep 0.1
done
[[ -n ${window:-} ]] || { echo "FAIL: no window titled Tavlero" >&2; kill "$pid"; exit 1; }
xdotool windowfocus --sync "$window"
sleep 0.5
eval "$3"
xdotool windowfocus --sync "$window" key alt+f && sleep 0.5 && xdotool key a
sleep 0.5
kill -0 "$pid" 2>/dev/null && xdotool key alt+n
for _ in $(seq 100); do kill -0 "$pid" 2>/dev/null && sleep 0.1; done
kill -0 "$pid" 2>/dev/null && { echo "FAIL: the program did not end" >&2; kill "$pid"; exit 1; }
wait "$pid"
INSIDE
timeout 60 xvfb-run -a -s "-screen 0 1280x1024x24" bash "$work/inside.sh" "$work/tavlero" "$(realpath "$1")" "$2"
