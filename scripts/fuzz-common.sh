# Shared by the fuzz scripts: builds the clang fuzz build and runs one libFuzzer target on its corpus,
# under AddressSanitizer and UndefinedBehaviorSanitizer.
#   fuzz_reader <target> <corpus writer target> <max input length> <seed command> [seconds | --runs N]
# The seed command is given the corpus folder. The build goes to build-fuzz/ (or
# $SONOPTIC_FUZZ_BUILD_DIR); the corpus grows in its corpus-<target>/, and a crash is kept in
# artifacts-<target>/ for the suite to take up as a test case.
fuzz_reader() {
  local target=$1 writer=$2 max_len=$3 seed=$4
  shift 4
  local limit=(-max_total_time=60)
  if [ "${1:-}" = "--runs" ]; then
    limit=(-runs="$2")
  elif [ -n "${1:-}" ]; then
    limit=(-max_total_time="$1")
  fi
  local root build
  root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
  build=${SONOPTIC_FUZZ_BUILD_DIR:-$root/build-fuzz}
  bash "$root/scripts/install-deps.sh" clang libclang-rt-14-dev
  CC=clang CXX=clang++ cmake -S "$root" -B "$build" -G Ninja -DSONOPTIC_GUI=OFF -DSONOPTIC_SANITIZE=ON \
    -DCMAKE_BUILD_TYPE=RelWithDebInfo \
    -DCMAKE_C_FLAGS=-fsanitize=fuzzer-no-link -DCMAKE_CXX_FLAGS=-fsanitize=fuzzer-no-link >/dev/null
  cmake --build "$build" -j "$(nproc)" --target "$target" "$writer"
  local corpus=$build/corpus-$target artifacts=$build/artifacts-$target
  mkdir -p "$corpus" "$artifacts"
  "$seed" "$corpus"
  local binary
  binary=$(find "$build/tools" -type f -name "$target" -perm -u+x | head -n 1)
  ALSOFT_DRIVERS=null ALSOFT_CONF=/dev/null "$binary" "${limit[@]}" -max_len="$max_len" -print_final_stats=1 \
    -artifact_prefix="$artifacts/" "$corpus"
}
