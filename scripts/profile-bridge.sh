#!/usr/bin/env bash
# Counts the instructions of one reverb knob turn through the bridge and of the same OpenAL calls made
# bare, with valgrind's callgrind: unlike times, the counts do not depend on the machine or its load.
# Where the processor's counters are open to perf, it also prints perf stat's cycles, instructions
# and cache misses for a timed run of the benchmark.
#   scripts/profile-bridge.sh [build folder]
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
build=${1:-$root/build}
bash "$root/scripts/install-deps.sh" valgrind linux-perf
cmake --build "$build" --target bench_bridge >/dev/null
bench=$build/tools/bench_bridge/bench_bridge
export ALSOFT_DRIVERS=null ALSOFT_CONF=/dev/null
rounds=1 turns=2000
out=$(mktemp)
trap 'rm -f "$out"' EXIT
valgrind --tool=callgrind --callgrind-out-file="$out" "$bench" "$rounds" "$turns" >/dev/null 2>&1
# The warm-up round and the measured ones, of each side.
calls=$(( (rounds + 1) * turns ))
callgrind_annotate --inclusive=yes "$out" 2>/dev/null | awk -v calls="$calls" '
  /TurnThroughBridge\(/ && !bridge { gsub(",", "", $1); bridge = $1 }
  /TurnWithBareCalls\(/ && !bare { gsub(",", "", $1); bare = $1 }
  END {
    if (!bridge || !bare) { print "callgrind named neither side" > "/dev/stderr"; exit 1 }
    printf "instructions per knob turn: bridge %d, bare OpenAL calls %d, ratio %.3f\n", bridge / calls, bare / calls, bridge / bare
  }'
# perf stat succeeds even without counters; it then says "not supported" for each event.
if probe=$(perf stat -e instructions true 2>&1) && ! grep -q "not supported" <<<"$probe"; then
  perf stat -e cycles,instructions,cache-references,cache-misses "$bench"
else
  echo "perf stat: this machine does not open its processor counters; the counts above stand for them"
fi
