#!/usr/bin/env bash
# Makes the .deb of a built tree with cpack, into a folder of its own, and checks what a user would
# install: the control fields, both programs, the desktop entry, the icon at every size, the AppStream
# metadata, and the verdicts of desktop-file-validate and appstreamcli on them.
#   check_deb.sh <cpack> <build folder> <application id> <icon size>...
set -euo pipefail
cpack=$1 build=$2 id=$3
shift 3
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
fail() { echo "FAIL: $*" >&2; exit 1; }

"$cpack" -G DEB --config "$build/CPackConfig.cmake" -B "$work/out" >"$work/cpack.log" 2>&1 \
  || { cat "$work/cpack.log"; fail "cpack -G DEB"; }
debs=("$work"/out/*.deb)
[ ${#debs[@]} -eq 1 ] && [ -f "${debs[0]}" ] || fail "cpack made no single .deb: ${debs[*]}"
deb=${debs[0]}

dpkg-deb -I "$deb"
[ "$(dpkg-deb -f "$deb" Section)" = sound ] || fail "section is not sound"
depends=$(dpkg-deb -f "$deb" Depends)
for lib in libopenal1 libqt6core6 libqt6gui6 libqt6widgets6 libqt6openglwidgets6; do
  grep -Eq "(^|, )$lib( |,|$)" <<<"$depends" || fail "Depends lacks $lib"
done

root=$work/root
dpkg -x "$deb" "$root"
for exe in sonoptic sonoptic-render; do
  [ -f "$root/usr/bin/$exe" ] && [ -x "$root/usr/bin/$exe" ] || fail "/usr/bin/$exe missing or not executable"
done
for size in "$@"; do
  icon=$root/usr/share/icons/hicolor/${size}x$size/apps/$id.png
  [ -f "$icon" ] || fail "no icon of $size pixels"
  file -b "$icon" | grep -q "^PNG image data, $size x $size," || fail "$icon is $(file -b "$icon")"
done

desktop=$root/usr/share/applications/$id.desktop
metainfo=$root/usr/share/metainfo/$id.metainfo.xml
[ -f "$desktop" ] && [ -f "$metainfo" ] || fail "desktop entry or metainfo missing"
for line in "Name=Sonoptic" "Exec=sonoptic" "Icon=$id" "Categories=AudioVideo;Audio;"; do
  grep -qxF "$line" "$desktop" || fail "desktop entry lacks $line"
done
# desktop-file-validate exits 0 on warnings; any message but a hint counts as a failure here.
verdict=$(desktop-file-validate "$desktop" 2>&1) || fail "desktop-file-validate: $verdict"
[ -z "$(grep -v ': hint: ' <<<"$verdict")" ] || fail "desktop-file-validate: $verdict"
appstreamcli validate --no-net "$metainfo" || fail "appstreamcli validate"
# The installed tree as a software centre reads it: this also finds the desktop entry the metadata launches.
appstreamcli validate-tree --no-net "$root" || fail "appstreamcli validate-tree"
echo "package $(basename "$deb") checked"
