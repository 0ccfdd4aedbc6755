#!/usr/bin/env bash
# tavlero-cli text, html, info and picture: the worked example's bytes, exit codes and
# messages, without a display. Args: bin folder, data folder.
set -u
bin=$1
data=$2
cli="$bin/tavlero-cli"
example="$data/export/example"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
unset DISPLAY WAYLAND_DISPLAY
failures=0

fail() {
  echo "FAIL: $*"
  failures=$((failures + 1))
}

# same COMMAND-ARGS... EXPECTED: the command writes $work/out, which must equal EXPECTED.
same() {
  local expected=${*: -1}
  "$cli" --settings "$work/s.cfg" "${@:1:$#-1}" "$work/out" 2>"$work/err" || fail "$* failed: $(cat "$work/err")"
  cmp -s "$work/out" "$expected" || fail "$1 ${*:2:$#-2} did not give $(basename "$expected")"
  [ -s "$work/err" ] && fail "$1 printed: $(cat "$work/err")"
  rm -f "$work/out"
}

same text "$example/plan.tvl" "$example/scheme.txt"
same text --clipboard "$example/plan.tvl" "$example/clipboard.txt"
same html "$example/plan.tvl" "$example/report.html"
same info "$example/plan.tvl" "$example/info_project.html"
same info --method Les "$example/plan.tvl" "$example/info_les.html"

# The picture of the board, in either format, made with no display at all.
"$cli" --settings "$work/s.cfg" picture "$example/plan.tvl" "$work/board.bmp" 2>"$work/err" || fail "picture: $(cat "$work/err")"
[ "$(head -c 2 "$work/board.bmp")" = "BM" ] || fail "picture did not write a BMP"
"$cli" --settings "$work/s.cfg" picture "$example/plan.tvl" "$work/board.png" 2>"$work/err" || fail "png: $(cat "$work/err")"
[ "$(head -c 4 "$work/board.png" | tail -c 3)" = "PNG" ] || fail "picture did not write a PNG"

# Failures: a method that is not there, a folder that is not there, bad usage.
"$cli" --settings "$work/s.cfg" info --method Borte "$example/plan.tvl" "$work/x.html" 2>"$work/err"
[ $? -eq 2 ] || fail "info of a missing method did not end with 2"
grep -q "Borte" "$work/err" || fail "info did not name the missing method"
for command in text html info picture; do
  "$cli" --settings "$work/s.cfg" $command "$example/plan.tvl" "$work/missing/out" 2>"$work/err"
  [ $? -eq 2 ] || fail "$command into a missing folder did not end with 2"
  grep -q "$work/missing/out" "$work/err" || fail "$command did not name the file: $(cat "$work/err")"
  [ "$(wc -l <"$work/err")" -eq 1 ] || fail "$command printed more than one line"
  "$cli" $command "$example/plan.tvl" 2>/dev/null
  [ $? -eq 2 ] || fail "$command with one path did not end with 2"
done

[ "$failures" -eq 0 ] && echo "all export commands passed"
exit "$failures"
