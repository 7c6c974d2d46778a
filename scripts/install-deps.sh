#!/usr/bin/env bash
# Installs, from Debian's packages, whatever Sonoptic needs to build, run and test that this machine lacks.
# Runs as root on Debian 12; does nothing when everything is already there.
set -euo pipefail

packages=(
  build-essential cmake ninja-build ccache pkg-config git
  libopenal-dev libopenal1
  qt6-base-dev libqt6opengl6-dev libgl-dev libglu1-mesa-dev libgl1-mesa-dri
  fonts-dejavu-core
  libgtest-dev
  xvfb xauth libxtst-dev
  sox alsa-utils
  dpkg-dev file desktop-file-utils appstream
)
# Extra packages for a purpose of its own, named on the command line (the fuzzer asks for clang).
packages+=("$@")

missing=()
for p in "${packages[@]}"; do
  if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed'; then
    missing+=("$p")
  fi
done

if [ ${#missing[@]} -gt 0 ]; then
  echo "Installing from Debian: ${missing[*]}"
  export DEBIAN_FRONTEND=noninteractive
  apt-get update -qq
  apt-get install -y -qq --no-install-recommends "${missing[@]}"
fi
