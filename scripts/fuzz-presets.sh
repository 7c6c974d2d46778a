#!/usr/bin/env bash
# Fuzzes the .efx reader with libFuzzer for the given number of seconds (default 60) or runs, under
# AddressSanitizer and UndefinedBehaviorSanitizer, from a seed corpus of documents the program writes.
#   scripts/fuzz-presets.sh [seconds | --runs N]
set -euo pipefail
source "$(dirname "$0")/fuzz-common.sh"
seed() { "$(find "${SONOPTIC_FUZZ_BUILD_DIR:-$(dirname "$0")/../build-fuzz}/tools" -name make_preset_corpus -type f | head -n 1)" "$1"; }
# Inputs up to 4 KB hold every kind of chunk and nesting the reader knows; longer ones only repeat them
# and make each run slower (a damaged nesting is read again at each level it spills out of).
fuzz_reader fuzz_presets make_preset_corpus 4096 seed "$@"
