#!/usr/bin/env bash
# Installs the Debian packages the project builds and tests with. A quick no-op
# when everything is already there.
set -euo pipefail

# What each part of the build needs; scripts/test.sh builds all but the fuzz
# targets, so every package goes in.
packages=(
    # the libraries alone
    cmake g++ ninja-build pkg-config
    qtbase5-dev liblcms2-dev
    # tests and examples: translations, Qt's own, colour profiles; a virtual
    # display for scripts/run-host.sh
    qttools5-dev qttools5-dev-tools qttranslations5-l10n
    icc-profiles-free
    xvfb xauth
    # benchmarks
    libbenchmark-dev
    # fuzz targets (clang, libFuzzer) and the Objective-C++ syntax check
    clang libclang-rt-14-dev libgnustep-base-dev
    # API reference
    doxygen
    # the binary interface check
    abigail-tools binutils
    # format and static checks
    clang-format clang-tidy clang-tools
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
