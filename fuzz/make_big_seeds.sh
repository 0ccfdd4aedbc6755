#!/usr/bin/env bash
# Writes the reader's large seeds into a folder: plans at and beyond the method and link
# limits, and one long description far beyond 16-bit text positions. Made on demand, as
# they would add megabytes to the repository.
# Usage: fuzz/make_big_seeds.sh FOLDER
set -euo pipefail
out=${1:?folder}
mkdir -p "$out"

head='<projectName>Stor</projectName>\r\n<minimumCellWidth>25</minimumCellWidth>\r\n<maximumCellWidth>50</maximumCellWidth>\r\n<nameFontSize>6</nameFontSize>\r\n<infoFontSize>4</infoFontSize>\r\n<fontName>Arial</fontName>\r\n'

# plan METHODS LINKS: methods in a grid, each linked to the next, up to LINKS links.
plan() {
  awk -v methods="$1" -v links="$2" -v head="$head" 'BEGIN {
    ORS = ""; gsub(/\\r\\n/, "\r\n", head); print head
    for (i = 0; i < methods; i++)
      printf "<userMethod>\r\n\t<positionX>%d</positionX>\r\n\t<positionY>%d</positionY>\r\n\t<methodName>m%d</methodName>\r\n\t<shortDescription>s</shortDescription>\r\n\t<cellColor>16777215</cellColor>\r\n\t<cellFillStyle>0</cellFillStyle>\r\n\t<longDescription>l</longDescription>\r\n</userMethod>\r\n", (i % 200) * 60, int(i / 200) * 30, i
    for (i = 0; i < links; i++)
      printf "<userLink>\r\n\t<linkSource>m%d</linkSource>\r\n\t<linkTarget>m%d</linkTarget>\r\n</userLink>\r\n", i % methods, (i + 1 + int(i / methods)) % methods
  }'
}

plan 32002 0 >"$out/big_methods_over_limit.tvl"
plan 200 32768 >"$out/big_links_over_limit.tvl"
{
  plan 1 0
  printf '<userMethod><methodName>lang</methodName><longDescription>'
  head -c 100000 /dev/zero | tr '\0' 'x'
  printf '</longDescription></userMethod>\r\n'
} >"$out/big_long_description.tvl"
