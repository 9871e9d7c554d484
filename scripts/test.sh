#!/usr/bin/env bash
# Builds the library and its tests, then runs the suite.
#   scripts/test.sh              the whole suite, normal build, in build/
#   scripts/test.sh --sanitize   the whole suite built with AddressSanitizer and
#                                UndefinedBehaviorSanitizer, in build-sanitize/
#   scripts/test.sh --tsan       the threaded suites built with ThreadSanitizer,
#                                in build-tsan/
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/setup.sh

build_dir=build
# The normal lane also builds the benchmarks (without running them), so that
# they keep compiling; the sanitizer lanes leave them out.
options=(-DPELKARO_BUILD_BENCHMARKS=ON)
ctest_options=()
case "${1:-}" in
    --sanitize)
        build_dir=build-sanitize
        options=(-DPELKARO_SANITIZE=address -DPELKARO_BUILD_BENCHMARKS=OFF)
        # Full stacks on allocation let the suppressions name the Qt module that leaks.
        export ASAN_OPTIONS="halt_on_error=1:abort_on_error=1:detect_leaks=1:fast_unwind_on_malloc=0"
        export LSAN_OPTIONS="suppressions=$PWD/tests/lsan.supp:print_suppressions=0"
        export UBSAN_OPTIONS="halt_on_error=1:print_stacktrace=1:suppressions=$PWD/tests/ubsan.supp"
        ;;
    --tsan)
        build_dir=build-tsan
        options=(-DPELKARO_SANITIZE=thread -DPELKARO_BUILD_BENCHMARKS=OFF)
        ctest_options+=(--label-regex threads)
        export TSAN_OPTIONS="halt_on_error=1:second_deadlock_stack=1:suppressions=$PWD/tests/tsan.supp"
        ;;
    "") ;;
    *)
        echo "usage: $0 [--sanitize | --tsan]" >&2
        exit 2
        ;;
esac

cmake -S . -B "$build_dir" -G Ninja -DCMAKE_BUILD_TYPE=Debug "${options[@]}"
cmake --build "$build_dir" --parallel "$(nproc)"
ctest --test-dir "$build_dir" --output-on-failure --parallel "$(nproc)" "${ctest_options[@]}"
