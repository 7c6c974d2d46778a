#!/usr/bin/env bash
# Fuzzes the .efx reader with libFuzzer for the given number of seconds (default 60) or runs, under
# AddressSanitizer and UndefinedBehaviorSanitizer, from a seed corpus of documents the program writes.
#   scripts/fuzz-presets.sh [seconds | --runs N]
set -euo pipefail
source "$(dirname "$0")/fuzz-common.sh"
seed() { "$(find "${SONOPTIC_FUZZ_BUILD_DIR:-$(dirname "$0")/../build-fuzz}/tools" -name make_preset_corpus -type f | head -n 1)" "$1"; }
fuzz_reader fuzz_presets make_preset_corpus 16384 seed "$@"
