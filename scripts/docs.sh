#!/usr/bin/env bash
# Builds the API reference (Doxygen) into build-docs/docs/html. Fails when a
# public name has no comment, or on any other Doxygen warning.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/setup.sh

build_dir=build-docs
# The reference reads the public headers alone: the libraries' configuration
# is all it needs.
cmake -S . -B "$build_dir" -G Ninja \
    -DPELKARO_BUILD_TESTS=OFF -DPELKARO_BUILD_EXAMPLES=OFF -DPELKARO_BUILD_BENCHMARKS=OFF >/dev/null
# grep reads to the end: with -q it may close the pipe early, which pipefail fails.
if ! cmake --build "$build_dir" --target help | grep '^docs:' >/dev/null; then
    echo "docs: no docs target; is doxygen installed?" >&2
    exit 1
fi
cmake --build "$build_dir" --target docs
