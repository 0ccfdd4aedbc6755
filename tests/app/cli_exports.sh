#!/usr/bin/env bash
# tavlero-cli text, html, info and picture without a display: the worked example's bytes,
# exit codes and messages. Args: bin folder, data folder.
set -u
bin=$1
example="$2/export/example"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
unset DISPLAY WAYLAND_DISPLAY
failures=0
fail() { echo "FAIL: $*" && failures=$((failures + 1)); }
cli() { "$bin/tavlero-cli" --settings "$work/s.cfg" "$@" 2>"$work/err"; }

while read -r expected command; do
  rm -f "$work/out"
  cli $command "$example/plan.tvl" "$work/out" || fail "$command: $(cat "$work/err")"
  cmp -s "$work/out" "$example/$expected" || fail "$command did not give $expected"
  [ -s "$work/err" ] && fail "$command printed: $(cat "$work/err")"
done <<'END'
scheme.txt text
clipboard.txt text --clipboard
report.html html
info_project.html info
info_les.html info --method Les
END

# The picture, in either format, with no display at all.
for format in bmp:BM png:PNG; do
  cli picture "$example/plan.tvl" "$work/board.${format%:*}" || fail "picture: $(cat "$work/err")"
  head -c 4 "$work/board.${format%:*}" | grep -qa "${format#*:}" || fail "picture did not write ${format%:*}"
done

# Failures end with 2: a method that is not there, a folder that is not there, one path.
cli info --method Borte "$example/plan.tvl" "$work/x.html"
[ $? -eq 2 ] && grep -q "Borte" "$work/err" || fail "info of a missing method: $(cat "$work/err")"
for command in text html info picture; do
  cli $command "$example/plan.tvl" "$work/missing/out"
  [ $? -eq 2 ] && [ "$(wc -l <"$work/err")" -eq 1 ] && grep -q "$work/missing/out" "$work/err" || fail "$command into a missing folder: $(cat "$work/err")"
  cli $command "$example/plan.tvl"
  [ $? -eq 2 ] || fail "$command with one path did not end with 2"
done

[ "$failures" -eq 0 ] && echo "all export commands passed"
exit "$failures"
