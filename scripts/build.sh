#!/usr/bin/env bash
# Configures and builds Sonoptic, its tests and tools into build/ (or $SONOPTIC_BUILD_DIR).
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
build=${SONOPTIC_BUILD_DIR:-$root/build}
cmake -S "$root" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=${SONOPTIC_BUILD_TYPE:-RelWithDebInfo} "$@" >/dev/null
cmake --build "$build" -j "$(nproc)"
