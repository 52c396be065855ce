#!/usr/bin/env bash
# Builds the console and the dialog library and starts the console on the default store (or on the
# store given as the first argument). Installs nothing: run scripts/setup-debian.sh first.
set -euo pipefail
root="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
build="${TAVI_BUILD_DIR:-$root/build}"
cmake -S "$root" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DTAVI_BUILD_TESTS=OFF -DTAVI_BUILD_BENCH=OFF
cmake --build "$build" -j "${TAVI_JOBS:-2}" --target velbrook-console
exec "$build/bin/velbrook-console" "$@"
