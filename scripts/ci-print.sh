#!/usr/bin/env bash
# CI: printing to a real print queue. Starts CUPS (unless it runs already) with a cups-pdf
# queue as the default printer, prints an example plan from the real program under Xvfb
# with Ctrl+P, and checks that the PDF the queue made shows the board. Removes the queue
# and stops the daemon it started. Needs: bash scripts/install-deps.sh --package, a build.
set -euo pipefail
cd "$(dirname "$0")/.."
sudo=""
[[ $(id -u) -ne 0 ]] && sudo="sudo"
fail() { echo "FAIL: $*" >&2; exit 1; }
queue=TavleroTest
work=$(mktemp -d)
chmod 777 "$work"
mkdir -m 777 "$work/pdf"
cupsd=""
old_default=$(lpstat -d 2>/dev/null | sed -n 's/^system default destination: //p' || true)

cleanup() {
  $sudo lpadmin -x "$queue" 2>/dev/null || true
  [[ -n $old_default ]] && $sudo lpadmin -d "$old_default" 2>/dev/null
  $sudo rm -f "/etc/cups/cups-pdf-$queue.conf"
  [[ -n $cupsd ]] && $sudo kill "$cupsd" 2>/dev/null && wait "$cupsd" 2>/dev/null
  rm -rf "$work"
}
trap cleanup EXIT

if ! lpstat -r 2>/dev/null | grep -q "is running"; then
  $sudo cupsd -f &
  cupsd=$!
  for _ in $(seq 100); do lpstat -r 2>/dev/null | grep -q "is running" && break; sleep 0.1; done
  lpstat -r | grep -q "is running" || fail "cupsd did not start"
fi
# cups-pdf reads a file of its own for each queue; this one writes into our folder.
printf 'Out %s\nAnonDirName %s\nUserUMask 0000\n' "$work/pdf" "$work/pdf" | $sudo tee "/etc/cups/cups-pdf-$queue.conf" >/dev/null
$sudo lpadmin -p "$queue" -E -v "cups-pdf:/$queue" -P /usr/share/ppd/cups-pdf/CUPS-PDF_opt.ppd
$sudo lpadmin -d "$queue"

bash scripts/in-window.sh examples/nettbutikk.tvl "xdotool key ctrl+p && sleep 2" ||
  fail "the program did not print and end"

for _ in $(seq 300); do
  pdf=$(find "$work/pdf" -name '*.pdf' | head -n 1)
  [[ -n $pdf ]] && ! lpstat -o "$queue" 2>/dev/null | grep -q . && break
  sleep 0.1
done
[[ -n $pdf ]] || fail "the queue made no PDF"
pdfinfo "$pdf" | grep -q "^Pages: *1$" || fail "the PDF is not one page"
pdftoppm -r 50 -png "$pdf" "$work/page"
# The board shows: the example's yellow, cyan and blue-striped cells cover a share of the page.
for colour in yellow cyan; do
  share=$(convert "$work/page-1.png" -fuzz 8% -fill black +opaque "$colour" -fill white -opaque "$colour" \
    -format '%[fx:mean*1000]' info:)
  [[ ${share%.*} -ge 2 ]] || fail "the printed page shows no $colour cell (share $share per mille)"
done
echo "printing to a CUPS queue passed"
