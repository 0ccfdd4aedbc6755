#!/usr/bin/env bash
# The headless commands on a plan at the format's limit (32,001 methods, 32,767 links),
# each as a ratio to a floor that reads the input once and writes as many bytes with
# fsync, measured in the same run. Args: bin folder [methods].
set -eu
bin=$1
count=${2:-32001}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
unset DISPLAY WAYLAND_DISPLAY

awk -v n="$count" 'BEGIN {
  ORS = "\r\n"
  print "<?xml version=\"1.0\"?>"; print "<projectName>Stort brett</projectName>"
  print "<projectDescription></projectDescription>"; print "<fontName>Arial</fontName>"
  print "<minimumCellWidth> 25</minimumCellWidth>"; print "<maximumCellWidth> 50</maximumCellWidth>"
  print "<nameFontSize> 6</nameFontSize>"; print "<infoFontSize> 4</infoFontSize>"
  for (i = 0; i < n; i++) {
    printf "<userMethod>\r\n\t<positionX> %d</positionX>\r\n\t<positionY> %d</positionY>\r\n", 10 + (i % 100) * 70, 10 + int(i / 100) * 40
    printf "\t<methodName>metode%d()</methodName>\r\n\t<shortDescription>Gj\370r del %d av jobben.</shortDescription>\r\n", i, i
    printf "\t<cellColor> %d</cellColor>\r\n\t<cellFillStyle> %d</cellFillStyle>\r\n", (i % 3) * 65535, i % 8
    printf "\t<longDescription>Metode %d leser, regner og skriver.</longDescription>\r\n", i; print "</userMethod>"
  }
  print ""; print ""
  for (i = 0; i < 32767; i++) printf "<userLink>\r\n\t<linkSource>metode%d()</linkSource><linkTarget>metode%d()</linkTarget>\r\n</userLink>\r\n", i % n, (i * 7 + 1) % n
}' >"$work/plan.tvl"

seconds() {
  local start end
  start=$(date +%s%N)
  "$@" >/dev/null
  end=$(date +%s%N)
  echo $(((end - start) / 1000))
}
best() {  # the least of three runs, in microseconds
  local least=0 t
  for _ in 1 2 3; do
    t=$(seconds "$@")
    if [ "$least" -eq 0 ] || [ "$t" -lt "$least" ]; then least=$t; fi
  done
  echo "$least"
}
floor() { dd if="$work/plan.tvl" of="$work/floor" bs=1M conv=fsync status=none; }

echo "plan: $count methods, $(wc -c <"$work/plan.tvl") bytes"
cli() { "$bin/tavlero-cli" --settings "$work/s.cfg" "$@" || [ $? -eq 1 ]; }
base=$(best floor)
echo "floor: $((base / 1000)) ms"
for command in save text html info check; do
  case $command in
    check) t=$(best cli check "$work/plan.tvl") ;;
    *) t=$(best cli "$command" "$work/plan.tvl" "$work/out") ;;
  esac
  awk -v c="$command" -v t="$t" -v b="$base" 'BEGIN { printf "%-6s %6.0f ms  %5.1f x floor\n", c, t / 1000, t / b }'
done
