#!/usr/bin/env bash
# Installs, from Debian's archive, whatever this machine lacks for building and testing regvane.
set -euo pipefail

packages=(
  cmake ninja-build g++ googletest libgtest-dev libbenchmark-dev
  g++-mingw-w64-x86-64-posix mingw-w64-tools libz-mingw-w64-dev
  wine64 xvfb xauth fonts-wine fonts-wqy-microhei fonts-thai-tlwg python3-fonttools x11-apps imagemagick
  zlib1g-dev clang-14 libclang-rt-14-dev
)
missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed' || missing+=("$p")
done
if ((${#missing[@]})); then
  echo "installing: ${missing[*]}"
  sudo=""
  [[ $(id -u) -eq 0 ]] || sudo=sudo
  $sudo apt-get update -qq
  DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
fi
