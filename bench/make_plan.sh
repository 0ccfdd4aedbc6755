#!/usr/bin/env bash
# Writes a plan of N methods in rows of a hundred and 32,767 links among them, the most the
# format holds at N = 32001. Args: methods, output file.
set -eu
awk -v n="$1" 'BEGIN {
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
}' >"$2"
