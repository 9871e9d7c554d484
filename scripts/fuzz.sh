#!/usr/bin/env bash
# Builds the libFuzzer targets of fuzz/ with clang (in build-fuzz/) and runs
# each for a bounded time, starting from its seed corpus in fuzz/corpus/.
#   scripts/fuzz.sh                       every target for 30 seconds (CI)
#   scripts/fuzz.sh --seconds 600         longer local runs
#   scripts/fuzz.sh preset_files ...      only the targets named
# What a run learns stays in build-fuzz/corpus/<target>/ for the next run; an
# input that fails is kept in build-fuzz/artifacts/<target>/ and fails the script.
set -euo pipefail
cd "$(dirname "$0")/.."

seconds=30
targets=()
while (($#)); do
    case "$1" in
        --seconds)
            seconds=$2
            shift 2
            ;;
        -*)
            echo "usage: $0 [--seconds N] [target...]" >&2
            exit 2
            ;;
        *)
            targets+=("$1")
            shift
            ;;
    esac
done
if ((${#targets[@]} == 0)); then
    for corpus in fuzz/corpus/*/; do
        targets+=("$(basename "$corpus")")
    done
fi

scripts/setup.sh

build=build-fuzz
cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_FLAGS_DEBUG="-g -O1" \
    -DCMAKE_C_COMPILER=clang -DCMAKE_CXX_COMPILER=clang++ \
    -DPELKARO_BUILD_FUZZERS=ON -DPELKARO_BUILD_TESTS=OFF -DPELKARO_BUILD_EXAMPLES=OFF
cmake --build "$build" --parallel "$(nproc)" --target kvfuzz

# An allocation that cannot be made fails as it does outside the sanitizer
# (a null pointer, which Qt turns into std::bad_alloc) rather than ending the
# run: how the library copes with that is part of what is tested. Inputs are
# a few kilobytes; beyond Qt's own 64 MB read buffer for plug-in files, an
# allocation of more than 256 MB comes from a count that the input claims,
# and failing it at once spares the sanitizer mapping and poisoning it.
export ASAN_OPTIONS="allocator_may_return_null=1:max_allocation_size_mb=256:detect_leaks=1"
export LSAN_OPTIONS="suppressions=$PWD/tests/lsan.supp:print_suppressions=0"
export UBSAN_OPTIONS="halt_on_error=1:print_stacktrace=1:suppressions=$PWD/tests/ubsan.supp"
export QT_QPA_PLATFORM=offscreen

status=0
for target in "${targets[@]}"; do
    corpus="$build/corpus/$target"
    artifacts="$build/artifacts/$target"
    mkdir -p "$corpus" "$artifacts"
    echo "fuzz: $target for ${seconds}s"
    if ! "$build/fuzz/fuzz_$target" "$corpus" "fuzz/corpus/$target" \
        -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 \
        -artifact_prefix="$artifacts/" -print_final_stats=1 >"$build/fuzz-$target.log" 2>&1; then
        echo "fuzz: $target FAILED; see $build/fuzz-$target.log and $artifacts/"
        tail -n 40 "$build/fuzz-$target.log"
        status=1
    else
        grep -E "^(stat::number_of_executed_units|stat::peak_rss_mb|#[0-9]+ +DONE)" \
            "$build/fuzz-$target.log" | sed "s/^/fuzz: $target: /" || true
    fi
done
exit "$status"
