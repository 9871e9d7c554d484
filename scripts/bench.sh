#!/usr/bin/env bash
# Builds the library optimised (in build-release/) and runs the benchmarks;
# arguments go to Google Benchmark (for example --benchmark_filter=Pool).
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/setup.sh
cmake -S . -B build-release -G Ninja -DCMAKE_BUILD_TYPE=Release \
    -DPELKARO_BUILD_BENCHMARKS=ON -DPELKARO_BUILD_TESTS=OFF -DPELKARO_BUILD_EXAMPLES=OFF
cmake --build build-release --parallel "$(nproc)" --target kv_bench
QT_QPA_PLATFORM=offscreen build-release/bench/kv_bench "$@"
