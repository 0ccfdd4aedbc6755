#!/usr/bin/env bash
# The real program in a real X server: with a project named on the command line its
# window titled "Tavlero" appears and leaves through its own menu (Alt+F, A) with status
# 0 and no question. A project that cannot be opened brings the message "Gale parametre"
# instead of the window, and the program ends; so does a FIFO named as the project.
# Usage: window_xvfb.sh BUILD_BIN TEST_DATA
set -uo pipefail

bin=$1
data=$2
source "$(dirname "$0")/real_program.bash"

cat >"$work/inside.sh" <<'INSIDE'
set -uo pipefail
program=$1
project=$2
fail() { echo "FAIL: $*" >&2; kill "$pid" 2>/dev/null; exit 1; }

# Starts the program on a project and waits up to 15 s for its visible window of that title.
start() {
  "$program" "$1" &
  pid=$!
  for _ in $(seq 150); do
    window=$(xdotool search --onlyvisible --name "^$2\$" 2>/dev/null | head -n 1)
    [[ -n $window ]] && return
    kill -0 "$pid" 2>/dev/null && sleep 0.1 || fail "the program ended before a window titled $2 appeared"
  done
  fail "no window titled $2 within 15 s"
}

# Presses the keys in the window and waits up to 10 s for the end; its exit status in status.
press() {
  xdotool windowfocus --sync "$window"
  for key in "$@"; do xdotool key "$key" && sleep 0.5; done
  for _ in $(seq 100); do kill -0 "$pid" 2>/dev/null && sleep 0.1; done
  kill -0 "$pid" 2>/dev/null && fail "the program did not end after $*"
  wait "$pid"
  status=$?
}

start "$project" Tavlero
press alt+f a  # the project is unchanged, so nothing is asked
[[ $status -eq 0 ]] || fail "exit status $status"

start "$(dirname "$project")/mangler/plan.tvl" "Gale parametre"
xdotool search --onlyvisible --name '^Tavlero$' >/dev/null 2>&1 && fail "the main window showed beside the message"
press Return
[[ $status -ne 0 ]] || fail "a failed start ended with status 0"

# A FIFO named as the project is no plan: the same message at once, never a wait.
mkfifo "$(dirname "$program")/fifo.tvl"
start "$(dirname "$program")/fifo.tvl" "Gale parametre"
press Return
[[ $status -ne 0 ]] || fail "a FIFO as the project ended with status 0"
INSIDE

timeout 60 xvfb-run -a -s "-screen 0 1280x1024x24" bash "$work/inside.sh" "$work/tavlero" "$data/qt/board.tvl"
