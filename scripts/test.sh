#!/usr/bin/env bash
# Builds everything with AddressSanitizer and UndefinedBehaviorSanitizer and runs every test
# (unit, store and offscreen dialog tests). Installs nothing: run scripts/setup-debian.sh first.
set -euo pipefail
root="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
build="${TAVI_BUILD_DIR:-$root/build-test}"
jobs="${TAVI_JOBS:-2}"

cmake -S "$root" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Debug -DTAVI_SANITIZE=ON
cmake --build "$build" -j "$jobs"

export QT_QPA_PLATFORM=offscreen
# Qt's own plug-ins and fontconfig keep caches for the process's lifetime; they are not our leaks.
export ASAN_OPTIONS="${ASAN_OPTIONS:-detect_leaks=1:abort_on_error=0}"
export LSAN_OPTIONS="${LSAN_OPTIONS:-suppressions=$root/scripts/lsan.supp:print_suppressions=0}"
export UBSAN_OPTIONS="${UBSAN_OPTIONS:-print_stacktrace=1:halt_on_error=1}"
cd "$build"
ctest --output-on-failure -j "$jobs" --timeout 300
