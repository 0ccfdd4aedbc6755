#!/usr/bin/env bash
# Builds every test (logic, Qt, the real programs) with AddressSanitizer and
# UndefinedBehaviorSanitizer in build-asan/ and runs them; any report fails the run.
# Leaks of system libraries that we cannot free are named in scripts/lsan-suppressions.txt.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/install-deps.sh

sanitize="-fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer"
# Set before the build too: the test discovery runs the test programs.
export ASAN_OPTIONS=detect_leaks=1:check_initialization_order=1
export LSAN_OPTIONS=suppressions=$PWD/scripts/lsan-suppressions.txt:print_suppressions=0
export UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1

cmake -S . -B build-asan -DTAVLERO_BUILD_BENCH=OFF -DCMAKE_BUILD_TYPE=RelWithDebInfo \
  -DCMAKE_CXX_FLAGS="$sanitize" >/dev/null
cmake --build build-asan -j2
# The real-window tests type with fixed pauses; under the sanitizers two at once miss keys.
cd build-asan
ctest --output-on-failure -j2 -E '_xvfb$'
ctest --output-on-failure -R '_xvfb$'
