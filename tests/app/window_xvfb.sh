#!/usr/bin/env bash
# The real program in a real X server: its window appears titled "Tavlero" with a project
# named on the command line, shows the pointer's place in its title, and leaves through
# its own menu (Alt+F, A) with status 0 and no question. A project that cannot be opened
# brings the message "Gale parametre" instead of the window, and the program ends.
# Usage: window_xvfb.sh BUILD_BIN TEST_DATA
set -uo pipefail

bin=$1
data=$2
for tool in xvfb-run xdotool; do
  command -v "$tool" >/dev/null || { echo "FAIL: $tool is missing (scripts/install-deps.sh installs it)"; exit 1; }
done
[[ -x "$bin/tavlero" ]] || { echo "FAIL: no program at $bin/tavlero"; exit 1; }

# A folder of its own, so that the settings file the program makes lands there.
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cp "$bin/tavlero" "$work/"

cat >"$work/inside.sh" <<'INSIDE'
set -uo pipefail
program=$1
project=$2
fail() { echo "FAIL: $*" >&2; kill "$pid" 2>/dev/null; exit 1; }

# The visible window of that exact title, waited for up to 15 s while the program runs.
visibleWindow() {
  for _ in $(seq 150); do
    xdotool search --onlyvisible --name "^$1\$" 2>/dev/null | head -n 1 | grep . && return
    kill -0 "$pid" 2>/dev/null || fail "the program ended before a window titled $1 appeared"
    sleep 0.1
  done
  fail "no window titled $1 within 15 s"
}

# Waits up to 10 s for the program to end; its exit status in status.
awaitEnd() {
  for _ in $(seq 100); do
    kill -0 "$pid" 2>/dev/null || break
    sleep 0.1
  done
  kill -0 "$pid" 2>/dev/null && fail "the program did not end after $1"
  wait "$pid"
  status=$?
}

"$program" "$project" &
pid=$!
window=$(visibleWindow Tavlero) || exit 1

# A move over the board puts the project's name and the pointer's place in the title.
xdotool mousemove --window "$window" 300 200
title=""
for _ in $(seq 50); do
  title=$(xdotool getwindowname "$window")
  [[ "$title" == "Tavlero: Brett () (X:"* ]] && break
  sleep 0.1
done
[[ "$title" == "Tavlero: Brett () (X:"* ]] || fail "title after a move over the board: '$title'"

# Leave by the file menu; the project is unchanged, so nothing is asked.
xdotool windowfocus --sync "$window"
xdotool key alt+f
sleep 0.5
xdotool key a
awaitEnd "Alt+F, A"
[[ $status -eq 0 ]] || fail "exit status $status"
echo "window appeared, followed the pointer and closed with status 0"

# A project in a folder that does not exist: the message, OK, and the end.
"$program" "$(dirname "$project")/mangler/plan.tvl" &
pid=$!
box=$(visibleWindow "Gale parametre") || exit 1
xdotool search --onlyvisible --name '^Tavlero$' >/dev/null 2>&1 && fail "the main window showed beside the message"
xdotool windowfocus --sync "$box"
xdotool key Return
awaitEnd "the message"
[[ $status -ne 0 ]] || fail "a failed start ended with status 0"
echo "a project that cannot be opened gave the message and ended the program (status $status)"
INSIDE

timeout 60 xvfb-run -a -s "-screen 0 1280x1024x24" bash "$work/inside.sh" "$work/tavlero" "$data/qt/board.tvl"
