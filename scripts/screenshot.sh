#!/usr/bin/env bash
# Makes docs/screenshot.png, the README's picture: the real program under Xvfb with an
# example plan open at zoom 1.5 and one cell selected, grabbed with ImageMagick's import, then left
# through its menu. Needs a build (build/bin/tavlero) and bash scripts/install-deps.sh --package.
# Usage: scripts/screenshot.sh [PLAN.tvl] [OUT.png]
set -euo pipefail
cd "$(dirname "$0")/.."
plan=$(realpath "${1:-examples/nettbutikk.tvl}")
out=$(realpath -m "${2:-docs/screenshot.png}")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
# In a folder of its own, so the settings file the program makes lands there.
cp build/bin/tavlero "$work/"

cat >"$work/inside.sh" <<'INSIDE'
set -euo pipefail
"$1" "$2" &
pid=$!
for _ in $(seq 150); do
  window=$(xdotool search --onlyvisible --name '^Tavlero$' 2>/dev/null | head -n 1) && [[ -n $window ]] && break
  sleep 0.1
done
[[ -n ${window:-} ]] || { echo "no window" >&2; kill "$pid"; exit 1; }
xdotool windowfocus --sync "$window"
# One step out (zoom 1.5), where the whole example shows, and the first cell selected:
# the opened board puts its top left corner at (10, 10) units.
xdotool key minus
sleep 0.5
xdotool mousemove --window "$window" 120 90 click 1
sleep 1
import -window "$window" "$3"
xdotool windowfocus --sync "$window" key alt+f && sleep 0.5 && xdotool key a
wait "$pid"
INSIDE
timeout 60 xvfb-run -a -s "-screen 0 1280x1024x24" bash "$work/inside.sh" "$work/tavlero" "$plan" "$out"
echo "wrote $out"
