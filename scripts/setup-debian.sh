#!/usr/bin/env bash
# Installs what building, running and testing need on Debian 12. Safe to run again.
# --fuzz also installs clang and libFuzzer for the fuzz targets (cmake -DTAVI_FUZZ=ON).
set -euo pipefail
SUDO=""
if [ "$(id -u)" -ne 0 ]; then SUDO="sudo"; fi
packages=(
  build-essential cmake ninja-build pkg-config
  qt6-base-dev qt6-base-dev-tools libgl-dev
  libsqlite3-dev sqlite3 libpq-dev libsodium-dev libssl-dev openssl
  libgtest-dev libgmock-dev libbenchmark-dev
  fonts-dejavu-core
)
if [ "${1:-}" = "--fuzz" ]; then packages+=(clang-14 libclang-rt-14-dev); fi
missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed' || missing+=("$p")
done
if [ ${#missing[@]} -gt 0 ]; then
  $SUDO apt-get update -qq
  DEBIAN_FRONTEND=noninteractive $SUDO apt-get install -y -qq --no-install-recommends "${missing[@]}"
fi
