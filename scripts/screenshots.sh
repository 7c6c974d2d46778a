#!/usr/bin/env bash
# Makes the README's pictures under Xvfb, on OpenAL Soft's null output, into docs/: the main window
# with an EAX reverb's panel, the context/source window, the response graph with its measured decay,
# the reverb panner, the position window and the preset browser with the standard reverbs.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
build=${SONOPTIC_BUILD_DIR:-$root/build}
bash "$root/scripts/install-deps.sh"
bash "$root/scripts/build.sh"
shots=$(mktemp -d)
trap 'rm -rf "$shots"' EXIT
export ALSOFT_DRIVERS=null ALSOFT_CONF=/dev/null
run() { xvfb-run -a -s "-screen 0 1600x1200x24" "$@" >/dev/null; }
run "$build/tools/main_shot/main_shot" "$shots"
run "$build/tools/panel_shots/panel_shots" "$shots"
run "$build/tools/reverb_shots/reverb_shots" "$shots"
run "$build/tools/bench_position/bench_position" --shots "$shots"
run "$build/tools/bench_browser/bench_browser" --shots "$shots"
mkdir -p "$root/docs"
for picture in main-window source listener response-window reverb-panner position-top browser-library; do
  cp "$shots/$picture.png" "$root/docs/$picture.png"
done
echo "pictures in $root/docs"
