#!/usr/bin/env bash
# Installs what is missing, builds Sonoptic, and starts it. Arguments are handed to the program
# (for example: bash scripts/run.sh -maxsends=4).
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
bash "$root/scripts/install-deps.sh"
bash "$root/scripts/build.sh"

if [ -z "${DISPLAY:-}" ] && [ -z "${WAYLAND_DISPLAY:-}" ]; then
  echo "Sonoptic is built, but there is no display to show its windows on (DISPLAY is not set)."
  echo "Start it from a desktop session, or under a virtual X server: xvfb-run -a $root/build/app/sonoptic"
  exit 1
fi

# Without a sound card, OpenAL Soft's wave writer records what Sonoptic plays into a file instead.
if ! ls /dev/snd/pcm* >/dev/null 2>&1 && [ -z "${PULSE_SERVER:-}" ] && [ ! -S "${XDG_RUNTIME_DIR:-/nonexistent}/pulse/native" ]; then
  recording="$root/build/sonoptic-output.wav"
  conf="$root/build/sonoptic-wave.conf"
  printf '[general]\ndrivers=wave\n[wave]\nfile=%s\n' "$recording" > "$conf"
  echo "No sound device was found: what Sonoptic plays is recorded to $recording"
  export ALSOFT_CONF="$conf"
fi
exec "$root/build/app/sonoptic" "$@"
