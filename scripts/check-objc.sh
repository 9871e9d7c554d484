#!/usr/bin/env bash
# Compiles the Objective-C++ sources, which only Apple builds use, for syntax
# with clang against GNUstep's Foundation headers. tests/objc holds the
# declarations that GNUstep lacks; a stand-in replaces the export header that
# the build generates.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/setup.sh

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
printf '#pragma once\n#define KVCORE_EXPORT\n' > "$work/kvcore_export.h"
# Debian's GNUstep is built on GCC's Objective-C runtime, whose headers sit
# among GCC's own; only the objc folder is taken, beside clang's headers.
mkdir "$work/runtime"
ln -s "$(gcc -print-file-name=include)/objc" "$work/runtime/objc"

# GNUstep's flags, less its dependency files, optimisation and the current folder.
gnustep_flags=()
for flag in $(gnustep-config --objc-flags); do
    case "$flag" in
        -MMD | -MP | -I. | -g | -O*) ;;
        *) gnustep_flags+=("$flag") ;;
    esac
done

status=0
for source in src/private/*.mm; do
    echo "check-objc: $source"
    clang++ -fsyntax-only -x objective-c++ -std=c++17 -fobjc-runtime=gnustep-2.0 -Werror -Wall \
        "${gnustep_flags[@]}" \
        $(pkg-config --cflags Qt5Core) -fPIC \
        -I src -I src/private -I "$work" -isystem "$work/runtime" \
        -include tests/objc/GNUstepBookmarkShim.h \
        "$source" || status=1
done
exit "$status"
