#!/usr/bin/env bash
# Fuzzes the WAV reader and the engine's load of a file into a source with libFuzzer for the given
# number of seconds (default 60) or runs, under AddressSanitizer and UndefinedBehaviorSanitizer.
# Seeds: files written by sox in the layouts users bring (8 to 32 bits, integer and float, one to
# eight channels, extensible headers), by alsa-utils' arecord from its null device, and the crafted
# and rendered files of the project's own corpus writer.
#   scripts/fuzz-wav.sh [seconds | --runs N]
set -euo pipefail
source "$(dirname "$0")/fuzz-common.sh"
seed() {
  local corpus=$1 build=${SONOPTIC_FUZZ_BUILD_DIR:-$(dirname "$0")/../build-fuzz}
  "$(find "$build/tools" -name make_wave_corpus -type f | head -n 1)" "$corpus"
  local bits channels
  for bits in 8 16 24 32; do
    for channels in 1 2 4 6 8; do
      sox -n -r 8000 -b "$bits" -c "$channels" "$corpus/sox-${bits}b-${channels}ch.wav" synth 0.01 sine 440
    done
  done
  sox -n -r 22050 -e floating-point -b 32 -c 2 "$corpus/sox-float.wav" synth 0.01 square 300
  sox -n -r 11025 -e u-law -c 1 "$corpus/sox-ulaw.wav" synth 0.01 sine 300
  sox -n -r 11025 -e ms-adpcm -c 1 "$corpus/sox-adpcm.wav" synth 0.02 sine 300
  arecord -q -D null -f S16_LE -c 2 -r 8000 -d 1 -t wav "$corpus/arecord-s16.wav" || true
  arecord -q -D null -f U8 -c 1 -r 8000 -d 1 -t wav "$corpus/arecord-u8.wav" || true
}
bash "$(dirname "$0")/install-deps.sh" sox alsa-utils
fuzz_reader fuzz_waves make_wave_corpus 65536 seed "$@"
