#!/usr/bin/env bash
# The binary interface guard. A plug-in built against 2.4 keeps loading into
# every later 2.x, so the exported interface of libcore, libplugincore,
# libimage and libutils may grow but must not change.
#
#   scripts/check-abi.sh           builds the four libraries with debug
#                                  information (in build-abi/), describes each
#                                  with abidw and compares it with its baseline
#                                  abi/<soname>.abi through abidiff; fails on a
#                                  removed or changed function or variable, a
#                                  changed class layout or virtual table
#   scripts/check-abi.sh --update  writes the baseline anew from the same build
#                                  (scripts/update-abi-baseline.sh)
#
# Additions (new functions, classes, enumerators) pass. Only the types of the
# installed headers count: a class's Private may change freely. A library
# whose SONAME differs from its baseline's (a new major version) is compared
# for information only, and the baseline must be refreshed.
set -euo pipefail
cd "$(dirname "$0")/.."

update=false
case "${1:-}" in
    --update) update=true ;;
    "") ;;
    *)
        echo "usage: $0 [--update]" >&2
        exit 2
        ;;
esac

scripts/setup.sh

build_dir=build-abi
stage="$PWD/$build_dir/stage"
baseline_dir=abi
libraries=(core plugincore image utils)

# The debug information names paths relative to the checkout, wherever it is.
cmake -S . -B "$build_dir" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo \
    -DPELKARO_BUILD_TESTS=OFF "-DCMAKE_CXX_FLAGS=-fdebug-prefix-map=$PWD=." >/dev/null
cmake --build "$build_dir" --parallel "$(nproc)"
rm -rf "$stage"
cmake --install "$build_dir" --prefix "$stage" >/dev/null
headers="$stage/include/Pelkaro"

soname_of() {
    readelf -d "$1" | sed -n 's/.*(SONAME).*\[\(.*\)\]/\1/p'
}

# Types outside the installed headers are left out (declarations only), and
# no absolute path of this machine goes into the description.
describe() {
    abidw --headers-dir "$headers" --drop-private-types --short-locs --no-corpus-path \
        --type-id-style hash --out-file "$2" "$1"
}

mkdir -p "$baseline_dir" "$build_dir/abi"
failed=()
refresh=()
for name in "${libraries[@]}"; do
    library=$(find "$stage" -name "lib$name.so.*" -type f | head -n 1)
    if [[ -z "$library" ]]; then
        echo "abi: lib$name was not installed" >&2
        exit 1
    fi
    soname=$(soname_of "$library")
    current="$build_dir/abi/$soname.abi"
    describe "$library" "$current"

    if $update; then
        rm -f "$baseline_dir/lib$name.so."*.abi
        cp "$current" "$baseline_dir/$soname.abi"
        echo "abi: $baseline_dir/$soname.abi written"
        continue
    fi

    baseline="$baseline_dir/$soname.abi"
    informational=false
    if [[ ! -f "$baseline" ]]; then
        older=$(find "$baseline_dir" -name "lib$name.so.*.abi" | sort -V | tail -n 1)
        if [[ -z "$older" ]]; then
            echo "abi: $soname has no baseline; run scripts/update-abi-baseline.sh" >&2
            failed+=("$soname")
            continue
        fi
        baseline="$older"
        informational=true
    fi

    report="$build_dir/abi/$soname.diff"
    status=0
    abidiff --no-added-syms "$baseline" "$current" >"$report" 2>&1 || status=$?
    if ((status & 3)); then
        cat "$report" >&2
        echo "abi: abidiff could not compare $soname (status $status)" >&2
        exit 1
    fi
    if ((status & 12)) && $informational; then
        cat "$report"
        echo "abi: $soname differs from $(basename "$baseline"), as a new major version may;" \
            "refresh the baseline with scripts/update-abi-baseline.sh and say why in CHANGELOG.md"
        refresh+=("$soname")
    elif ((status & 12)); then
        cat "$report"
        kind="changed"
        ((status & 8)) && kind="incompatibly changed"
        echo "abi: the interface of $soname $kind against $baseline" >&2
        failed+=("$soname")
    elif $informational; then
        echo "abi: $soname: no change against $(basename "$baseline"); refresh the baseline" \
            "with scripts/update-abi-baseline.sh"
        refresh+=("$soname")
    else
        echo "abi: $soname: compatible with $baseline"
    fi
done

if ((${#failed[@]})); then
    echo "abi: FAILED for ${failed[*]}. A release of the same major version may only add to" \
        "the interface. A deliberate break raises the SOVERSION (the project's major version)" \
        "and refreshes the baseline: scripts/update-abi-baseline.sh, with the reason in" \
        "CHANGELOG.md." >&2
    exit 1
fi
if ((${#refresh[@]})); then
    echo "abi: the baseline of ${refresh[*]} must be refreshed (scripts/update-abi-baseline.sh)"
fi
