#!/usr/bin/env bash
# Fuzzes the .efx reader with libFuzzer for the given number of seconds (default 60), under
# AddressSanitizer and UndefinedBehaviorSanitizer, from a seed corpus of documents the program writes.
# Builds with clang into build-fuzz/ (or $SONOPTIC_FUZZ_BUILD_DIR); the corpus grows in its corpus/.
#   scripts/fuzz-presets.sh [seconds]
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
seconds=${1:-60}
build=${SONOPTIC_FUZZ_BUILD_DIR:-$root/build-fuzz}
bash "$root/scripts/install-deps.sh" clang libclang-rt-14-dev
CC=clang CXX=clang++ cmake -S "$root" -B "$build" -G Ninja -DSONOPTIC_GUI=OFF -DSONOPTIC_SANITIZE=ON \
  -DCMAKE_BUILD_TYPE=RelWithDebInfo \
  -DCMAKE_C_FLAGS=-fsanitize=fuzzer-no-link -DCMAKE_CXX_FLAGS=-fsanitize=fuzzer-no-link >/dev/null
cmake --build "$build" -j "$(nproc)" --target fuzz_presets make_preset_corpus
corpus=$build/corpus
mkdir -p "$corpus"
"$build/tools/fuzz_presets/make_preset_corpus" "$corpus"
cd "$build"
"$build/tools/fuzz_presets/fuzz_presets" -max_total_time="$seconds" -max_len=16384 -print_final_stats=1 "$corpus"
