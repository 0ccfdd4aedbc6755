#!/usr/bin/env bash
# Builds the libFuzzer targets with clang and runs each for a while (default 60 s).
# Usage: scripts/fuzz.sh [seconds]
set -euo pipefail
cd "$(dirname "$0")/.."
seconds=${1:-60}
bash scripts/install-deps.sh --fuzz
CC=clang CXX=clang++ cmake -S . -B build-fuzz -DTAVLERO_BUILD_FUZZ=ON -DTAVLERO_BUILD_QT=OFF \
  -DTAVLERO_BUILD_TESTS=OFF -DTAVLERO_BUILD_BENCH=OFF -DCMAKE_BUILD_TYPE=RelWithDebInfo
cmake --build build-fuzz -j2
mkdir -p build-fuzz/corpus/read_project build-fuzz/corpus/records
cp examples/*.tvl build-fuzz/corpus/read_project/ 2>/dev/null || true
for name in records read_project; do
  echo "== fuzz_${name} for ${seconds}s"
  build-fuzz/bin/fuzz_${name} -max_total_time="${seconds}" -max_len=65536 -timeout=20 \
    build-fuzz/corpus/${name}
done
