#!/usr/bin/env bash
# Installs the Debian packages the project builds and tests with. A quick no-op
# when everything is already there.
set -euo pipefail

packages=(
  cmake g++ ninja-build pkg-config
  qtbase5-dev qttools5-dev-tools qttranslations5-l10n
  liblcms2-dev
  libbenchmark-dev
  clang libgnustep-base-dev
  libclang-rt-14-dev
  icc-profiles-free
  xvfb xauth
  doxygen
  abigail-tools binutils
)

missing=()
for p in "${packages[@]}"; do
  status=$(dpkg-query -W -f='${Status}' "$p" 2>/dev/null || true)
  [[ "$status" == "install ok installed" ]] || missing+=("$p")
done

if ((${#missing[@]})); then
  echo "setup: installing ${missing[*]}"
  sudo_cmd=()
  [[ $(id -u) -eq 0 ]] || sudo_cmd=(sudo)
  export DEBIAN_FRONTEND=noninteractive
  "${sudo_cmd[@]}" apt-get update -qq
  "${sudo_cmd[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}"
fi
