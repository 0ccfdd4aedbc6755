#!/usr/bin/env bash
# Makes docs/screenshot.png, the README's picture: the real program under Xvfb with an
# example plan open at zoom 1.5 and one cell selected, grabbed with ImageMagick's import.
# Needs a build (build/bin/tavlero) and bash scripts/install-deps.sh --package.
# Usage: scripts/screenshot.sh [PLAN.tvl] [OUT.png]
set -euo pipefail
cd "$(dirname "$0")/.."
out=$(realpath -m "${2:-docs/screenshot.png}")
# One step out (zoom 1.5), where the whole example shows, and the first cell selected:
# the opened board puts its top left corner at (10, 10) units.
bash scripts/in-window.sh "${1:-examples/nettbutikk.tvl}" "
  xdotool key minus && sleep 0.5
  xdotool mousemove --window \$window 120 90 click 1 && sleep 1
  import -window \$window '$out'"
echo "wrote $out"
