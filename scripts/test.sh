#!/usr/bin/env bash
# Builds the library and its tests, then runs the whole suite.
#   scripts/test.sh              the normal build, in build/
#   scripts/test.sh --sanitize   the same built with AddressSanitizer and
#                                UndefinedBehaviorSanitizer, in build-sanitize/
set -euo pipefail
cd "$(dirname "$0")/.."

"scripts/setup.sh"

build_dir=build
options=()
if [[ "${1:-}" == "--sanitize" ]]; then
    build_dir=build-sanitize
    options+=(-DPELKARO_SANITIZE=ON)
    # Full stacks on allocation let the suppressions name the Qt module that leaks.
    export ASAN_OPTIONS="halt_on_error=1:abort_on_error=1:detect_leaks=1:fast_unwind_on_malloc=0${ASAN_OPTIONS:+:$ASAN_OPTIONS}"
    export LSAN_OPTIONS="suppressions=$PWD/tests/lsan.supp:print_suppressions=0${LSAN_OPTIONS:+:$LSAN_OPTIONS}"
    export UBSAN_OPTIONS="halt_on_error=1:print_stacktrace=1${UBSAN_OPTIONS:+:$UBSAN_OPTIONS}"
fi

cmake -S . -B "$build_dir" -G Ninja -DCMAKE_BUILD_TYPE=Debug "${options[@]}"
cmake --build "$build_dir" --parallel "$(nproc)"
ctest --test-dir "$build_dir" --output-on-failure --parallel "$(nproc)"
