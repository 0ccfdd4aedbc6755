#!/usr/bin/env bash
# The folders of src/ form layers, lowest first; a file may include its own folder and the
# folders below it, never one above. A new folder fails until it is given its place here.
set -euo pipefail
src=${1:?usage: layers.sh SRC_FOLDER}
layers=(platform core board files export editing program qt)

rank() {
  local i
  for i in "${!layers[@]}"; do
    [[ ${layers[$i]} == "$1" ]] && { echo "$i"; return; }
  done
  echo -1
}

status=0
for folder in "$src"/*/; do
  from=$(basename "$folder")
  fromRank=$(rank "$from")
  if ((fromRank < 0)); then
    echo "src/$from/ has no place among the layers in $0"
    status=1
    continue
  fi
  while IFS=: read -r file included; do
    to=${included%%/*}
    [[ -d $src/$to ]] || continue
    if (($(rank "$to") > fromRank)); then
      echo "${file#"$src"/} includes $included from a layer above it"
      status=1
    fi
  done < <(grep -o '^#include "[^"]*/[^"]*"' -r "$folder" | sed 's/:#include "/:/; s/"$//')
done
exit $status
