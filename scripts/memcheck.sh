#!/usr/bin/env bash
# Runs the whole program through a short scripted session (tools/memcheck_session: slots, effect panels
# and knobs, sources from a WAV file, the listener and source panels, the position window, the preset
# browser, then the main window closed) under Valgrind's memcheck, inside Xvfb, on OpenAL Soft's null
# output. Fails on any definite or indirect leak and on any memory error. Suppressions, for third-party
# libraries only, are in scripts/memcheck.supp. Builds into build-memcheck/ (or $SONOPTIC_MEMCHECK_BUILD_DIR),
# RelWithDebInfo and without sanitizers, which would not run under Valgrind.
#   scripts/memcheck.sh
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
build=${SONOPTIC_MEMCHECK_BUILD_DIR:-$root/build-memcheck}
bash "$root/scripts/install-deps.sh" valgrind
cmake -S "$root" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DSONOPTIC_SANITIZE=OFF >/dev/null
cmake --build "$build" -j "$(nproc)" --target memcheck_session

log=$build/memcheck.log
# Mesa's softpipe rather than llvmpipe for the response window's OpenGL, and its vertex stage without
# LLVM: no machine code generated at run time, which Valgrind cannot tell apart from ours and whose
# register spills it reports as uninitialised; no pool of rendering threads either.
export ALSOFT_DRIVERS=null ALSOFT_CONF=/dev/null LIBGL_ALWAYS_SOFTWARE=1 GALLIUM_DRIVER=softpipe DRAW_USE_LLVM=0
# Qt's regular expressions (the file dialog's name filters) without PCRE2's just-in-time compiler, for the
# same reason.
export QT_QPA_PLATFORM=xcb QT_ENABLE_REGEXP_JIT=0
# --keep-debuginfo names the frames of the GL driver, which is unloaded before the leak check runs;
# --child-silent-after-fork keeps out D-Bus's launcher, which a session bus lookup forks.
status=0
xvfb-run -a -s "-screen 0 1600x1200x24" \
  valgrind --tool=memcheck --leak-check=full --show-leak-kinds=definite,indirect \
  --errors-for-leak-kinds=definite,indirect --error-exitcode=1 --num-callers=40 \
  --keep-debuginfo=yes --child-silent-after-fork=yes -s \
  --suppressions="$root/scripts/memcheck.supp" --gen-suppressions=all --log-file="$log" \
  "$build/tools/memcheck_session/memcheck_session" || status=$?
grep -E "ERROR SUMMARY|definitely lost|indirectly lost|possibly lost|still reachable|suppressed:" "$log" || true
if [ "$status" -ne 0 ]; then
  echo "memcheck: failed (exit status $status); the report is in $log"
  exit 1
fi
echo "memcheck: clean; the report is in $log"
