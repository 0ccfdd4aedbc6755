#!/usr/bin/env bash
# tavlero-cli text, html, info and picture without a display: the worked example's bytes,
# exit codes and messages, and vector pictures of a board too large for a bitmap.
# Args: bin folder, data folder.
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

# SVG and PDF: a board of 3,000 linked methods, far past what a bitmap may hold, still
# gives a picture that parses and carries every name as text.
for tool in xmllint pdfinfo pdftotext; do
  command -v "$tool" >/dev/null || { echo "FAIL: $tool is missing (scripts/install-deps.sh installs it)"; exit 1; }
done

count=3000
awk -v n=$count 'BEGIN {
  ORS = "\r\n"
  print "<?xml version=\"1.0\"?>"; print "<projectName>Stort brett</projectName>"
  print "<projectDescription></projectDescription>"; print "<fontName>Arial</fontName>"
  print "<minimumCellWidth> 25</minimumCellWidth>"; print "<maximumCellWidth> 50</maximumCellWidth>"
  print "<nameFontSize> 6</nameFontSize>"; print "<infoFontSize> 4</infoFontSize>"
  for (i = 0; i < n; i++) {
    printf "<userMethod>\r\n\t<positionX> %d</positionX>\r\n\t<positionY> %d</positionY>\r\n", 10 + (i % 60) * 70, 10 + int(i / 60) * 40
    printf "\t<methodName>metode%d()</methodName>\r\n\t<shortDescription>Steg %d</shortDescription>\r\n", i, i
    printf "\t<cellColor> %d</cellColor>\r\n\t<cellFillStyle> %d</cellFillStyle>\r\n", (i % 3) * 65535, i % 8
    print "\t<longDescription></longDescription>"; print "</userMethod>"
  }
  print ""; print ""
  for (i = 1; i < n; i++) printf "<userLink>\r\n\t<linkSource>metode%d()</linkSource><linkTarget>metode%d()</linkTarget>\r\n</userLink>\r\n", i - 1, i
}' >"$work/plan.tvl"

cli picture "$work/plan.tvl" "$work/board.bmp"
[ $? -eq 2 ] && grep -q "for stort" "$work/err" || fail "a bitmap of the large board was not refused: $(cat "$work/err")"

names() { grep -o "metode[0-9]*()" | sort -u | wc -l; }
cli picture "$work/plan.tvl" "$work/board.svg" || fail "svg: $(cat "$work/err")"
xmllint --noout --huge "$work/board.svg" || fail "the SVG does not parse"
[ "$(names <"$work/board.svg")" -eq $count ] || fail "the SVG lacks method names"

cli picture "$work/plan.tvl" "$work/board.PDF" || fail "pdf: $(cat "$work/err")"
pdfinfo "$work/board.PDF" | grep -q "^Pages: *1$" || fail "the PDF is not one readable page"
[ "$(pdftotext -raw "$work/board.PDF" - | names)" -eq $count ] || fail "the PDF lacks method names"

# A folder that is not there: status 2 and one line that names the file.
for format in svg pdf; do
  cli picture "$work/plan.tvl" "$work/missing/board.$format"
  [ $? -eq 2 ] && [ "$(wc -l <"$work/err")" -eq 1 ] && grep -q "missing/board.$format" "$work/err" || fail "$format into a missing folder: $(cat "$work/err")"
done

[ "$failures" -eq 0 ] && echo "all export commands passed"
exit "$failures"
