#!/usr/bin/env bash
# Builds the libFuzzer targets with clang (AddressSanitizer and UndefinedBehaviorSanitizer),
# replays each target's corpus under fuzz/corpus/, then fuzzes each for SECONDS (default 60),
# going on past a finding so that a long run collects them all. New inputs collect in
# build-fuzz/corpus/<target>/, findings in build-fuzz/findings/<target>/; any finding fails
# the run. Once fixed, a finding goes into fuzz/corpus/<target>/ and, as a case, into tests/.
# A campaign runs the targets side by side at low priority, each for SECONDS of wall time:
#   scripts/fuzz.sh --parallel 3600
# Usage: scripts/fuzz.sh [--parallel] [SECONDS] [TARGET...]
set -euo pipefail
cd "$(dirname "$0")/.."
parallel=false
[[ ${1:-} == --parallel ]] && parallel=true && shift
seconds=${1:-60}
shift || true
targets=("$@")
((${#targets[@]})) || targets=(records read_project round_trip settings check exports editing browser_html save)

bash scripts/install-deps.sh --fuzz
CC=clang CXX=clang++ cmake -S . -B build-fuzz -DTAVLERO_BUILD_FUZZ=ON -DTAVLERO_BUILD_QT=OFF \
  -DTAVLERO_BUILD_TESTS=OFF -DTAVLERO_BUILD_BENCH=OFF -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
cmake --build build-fuzz -j2 --target "${targets[@]/#/fuzz_}"

export ASAN_OPTIONS=detect_leaks=1 UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
# Side by side, a target gets a share of the cores, so an input's time limit is wall time.
timeout=30
$parallel && timeout=300
# Each target's verdict goes to its findings folder, so parallel runs can report it.
fuzz_target() {
  local name=$1
  # Full paths: the editing target changes the working folder while it runs an input.
  local fuzzer=$PWD/build-fuzz/bin/fuzz_${name}
  local corpus=$PWD/build-fuzz/corpus/${name}
  local findings=$PWD/build-fuzz/findings/${name}
  rm -rf "$findings"  # this run's findings only
  mkdir -p "$corpus" "$findings"
  # The info view's page writer starts from the pages the exports' tests expect.
  local seeds=fuzz/corpus/${name} options replay
  [[ $name == browser_html ]] && seeds=tests/data/export
  find "$seeds" -type f -exec cp -n {} "$corpus"/ \;
  options=(-rss_limit_mb=4096 -artifact_prefix="$findings/")
  if [[ $name == read_project ]]; then
    # Plans at and beyond the limits are far bigger than libFuzzer would ever grow one.
    fuzz/make_big_seeds.sh build-fuzz/big_seeds
    options+=(-max_len=10000000 -len_control=0)
    replay=("$seeds" build-fuzz/big_seeds)
  else
    options+=(-max_len=65536)
    replay=("$seeds")
  fi
  echo "== fuzz_${name}: replaying the corpus, then fuzzing for ${seconds}s"
  # The plans at the limits take many seconds under the sanitizers on a busy machine.
  if ! "$fuzzer" "${options[@]}" -timeout=300 -runs=0 "${replay[@]}" 2>"$findings/replay.log"; then
    tail -n 30 "$findings/replay.log"
    echo "$name (corpus)" >"$findings/verdict"
    return
  fi
  "$fuzzer" "${options[@]}" -timeout=$timeout -fork=1 -ignore_crashes=1 -ignore_timeouts=1 -ignore_ooms=1 \
    -max_total_time="$seconds" "$corpus" 2>"$findings/fuzz.log" || true
  grep -E '^#[0-9]+: cov' "$findings/fuzz.log" | tail -n 1
  if ls "$findings" | grep -qE '^(crash|leak|oom|timeout)-'; then
    grep -h 'fuzz check failed\|ERROR: \|runtime error' "$findings/fuzz.log" | sort | uniq -c
    echo "$name" >"$findings/verdict"
  fi
}

for name in "${targets[@]}"; do
  if $parallel; then
    nice -n 19 bash -c "$(declare -f fuzz_target); seconds=$seconds timeout=$timeout fuzz_target $name" &
  else
    fuzz_target "$name"
  fi
done
wait
failed=()
for name in "${targets[@]}"; do
  [[ -f build-fuzz/findings/$name/verdict ]] && failed+=("$(cat "build-fuzz/findings/$name/verdict")")
done
if ((${#failed[@]})); then
  echo "Fuzzing found faults in: ${failed[*]} (inputs under build-fuzz/findings/)" >&2
  exit 1
fi
