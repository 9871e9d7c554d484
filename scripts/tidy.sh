#!/usr/bin/env bash
# Runs clang-tidy with the checks of .clang-tidy over the sources of libcore
# and its companion libraries (and their headers), using the compile
# commands of a library-only configuration in build-tidy/. Any finding fails.
#   scripts/tidy.sh                  every source
#   scripts/tidy.sh src/KVMenu...    only the files named
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/setup.sh

build_dir=build-tidy
# Configuring writes the compile commands and the generated headers; the
# sources include no moc output, so nothing needs building.
cmake -S . -B "$build_dir" -G Ninja -DCMAKE_BUILD_TYPE=Debug \
    -DPELKARO_BUILD_TESTS=OFF -DPELKARO_BUILD_EXAMPLES=OFF -DPELKARO_BUILD_BENCHMARKS=OFF >/dev/null

if (($#)); then
    files=("$@")
else
    files=("$PWD/src/" "$PWD/companions/")
fi
echo "tidy: $(clang-tidy --version | grep -m1 version)"
# run-clang-tidy asks for colours whatever the output is; a log wants none.
run-clang-tidy -quiet -p "$build_dir" -j "$(nproc)" "${files[@]}" 2>&1 |
    sed -E -e "s/\x1b\[[0-9;]*m//g" -e "/^[0-9]+ warnings? generated\.$/d"
