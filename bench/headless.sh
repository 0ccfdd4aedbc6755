#!/usr/bin/env bash
# The headless commands on a plan at the format's limit (32,001 methods, 32,767 links),
# each as a ratio to a floor that reads the input once and writes as many bytes with
# fsync, measured in the same run; with each command's processor time and peak memory.
# Args: bin folder [methods].
set -eu
bin=$1
count=${2:-32001}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
unset DISPLAY WAYLAND_DISPLAY

bash "$(dirname "$0")/make_plan.sh" "$count" "$work/plan.tvl"

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
    check) args=(check "$work/plan.tvl") ;;
    *) args=("$command" "$work/plan.tvl" "$work/out") ;;
  esac
  t=$(best cli "${args[@]}")
  # One more run for the processor time (the wall time waits for a busy machine) and the peak memory.
  /usr/bin/time -f "%U %S %M" -o "$work/usage" "$bin/tavlero-cli" --settings "$work/s.cfg" "${args[@]}" >/dev/null || true
  read -r user system rss <"$work/usage"
  awk -v c="$command" -v t="$t" -v b="$base" -v u="$user" -v s="$system" -v rss="$rss" 'BEGIN {
    printf "%-6s %6.0f ms  %5.1f x floor  cpu %4.0f ms  peak %4.0f MB\n", c, t / 1000, t / b, (u + s) * 1000, rss / 1024 }'
done
