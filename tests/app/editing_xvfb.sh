#!/usr/bin/env bash
# The real program in a real X server. A project that cannot be opened brings "Gale
# parametre" and a failed end; then a plan made from nothing: two methods added by
# double-click, typing and Enter, linked by a click and a Shift-click, saved with Ctrl+S
# through the file dialog, and left by its menu. The saved file is checked byte for byte,
# the positions aside, which follow the pointer.
# Usage: editing_xvfb.sh BUILD_BIN TEST_DATA
set -uo pipefail

bin=$1
data=$2
source "$(dirname "$0")/real_program.bash"

cat >"$work/inside.sh" <<'INSIDE'
set -uo pipefail
program=$1
saved=$2
pid=
fail() { echo "FAIL: $*" >&2; [[ -n $pid ]] && kill "$pid" 2>/dev/null; exit 1; }

# Waits up to 15 s until a visible window of that title is there (or, with "gone", is not).
await() {
  for _ in $(seq 150); do
    found=$(xdotool search --onlyvisible --name "^$1\$" 2>/dev/null | head -n 1)
    if [[ ${2:-} == gone ]]; then [[ -z $found ]] && return; else [[ -n $found ]] && return; fi
    kill -0 "$pid" 2>/dev/null || fail "the program ended while waiting for '$1' ${2:-}"
    sleep 0.1
  done
  fail "'$1' ${2:-there} not within 15 s"
}

# A method by double-click at (x, y) of main, its name and summary, and Enter.
addMethod() {
  xdotool mousemove --window "$main" "$1" "$2" && sleep 0.3
  xdotool click --repeat 2 --delay 60 1
  await "Legg til ny metode"
  # Typing starts once the dialog has the keyboard; a busy machine may show it before.
  xdotool windowfocus --sync "$found"
  xdotool type --delay 15 "$3"
  xdotool key Tab
  xdotool type --delay 15 "$4"
  xdotool key Return
  await "Legg til ny metode" gone
}

# A project that cannot be opened: the message instead of the window, and a failed end.
"$program" "$(dirname "$saved")/mangler/plan.tvl" &
pid=$!
await "Gale parametre"
xdotool search --onlyvisible --name '^Tavlero$' >/dev/null && fail "the main window showed beside the message"
xdotool windowfocus --sync "$found" key Return
wait "$pid" && fail "a failed start ended with status 0"

"$program" &
pid=$!
await Tavlero
main=$found
addMethod 150 150 "lesFil()" "Leser fil"
addMethod 500 300 "main()" ""
# Select main(), then Shift-click lesFil(): main() uses lesFil().
xdotool mousemove --window "$main" 510 310 click 1 && sleep 0.3
xdotool keydown shift mousemove --window "$main" 160 160 click 1 keyup shift && sleep 0.3
xdotool windowfocus --sync "$main" key ctrl+s
await "Lagre som"
xdotool windowfocus --sync "$found"
xdotool type --delay 15 "$saved"
xdotool key Return
for _ in $(seq 100); do [[ -s $saved ]] && break; sleep 0.1; done
[[ -s $saved ]] || fail "nothing saved at $saved"
# Saved, so leaving asks nothing.
xdotool windowfocus --sync "$main" key alt+f a
for _ in $(seq 100); do kill -0 "$pid" 2>/dev/null && sleep 0.1; done
kill -0 "$pid" 2>/dev/null && fail "the program did not end after the save"
wait "$pid" || fail "exit status $?"
INSIDE

# -noreset: the failed start above is the server's last client; a reset then would refuse the next start.
timeout 120 xvfb-run -a -s "-screen 0 1280x1024x24 -noreset" bash "$work/inside.sh" "$work/tavlero" "$work/plan.tvl" || exit 1

sed 's/<position\([XY]\)>[^<]*</<position\1>N</g' "$work/plan.tvl" >"$work/normalised.tvl"
cmp "$work/normalised.tvl" "$data/app/made_plan.tvl" || { echo "FAIL: saved bytes differ:"; cat -A "$work/plan.tvl"; exit 1; }
echo "the plan was made, linked and saved as expected"
