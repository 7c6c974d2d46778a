#!/usr/bin/env bash
# Installs what is missing, builds everything, and runs every test; the windows' tests run inside Xvfb.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
bash "$root/scripts/install-deps.sh"
bash "$root/scripts/build.sh"
cd "${SONOPTIC_BUILD_DIR:-$root/build}"
xvfb-run -a -s "-screen 0 1600x1200x24" ctest --output-on-failure -j "$(nproc)"
