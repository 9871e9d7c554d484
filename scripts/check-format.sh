#!/usr/bin/env bash
# Checks that every C++ and Objective-C++ source of the repository is laid out
# as .clang-format says; prints what differs and fails if anything does.
#   scripts/check-format.sh          check
#   scripts/check-format.sh --fix    rewrite the files in place
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/setup.sh

mode=(--dry-run -Werror)
case "${1:-}" in
    --fix) mode=(-i) ;;
    "") ;;
    *)
        echo "usage: $0 [--fix]" >&2
        exit 2
        ;;
esac

# The repository's own files, tracked or new (not those of build folders),
# that are there.
files=()
while IFS= read -r file; do
    [[ -f "$file" ]] && files+=("$file")
done < <(git ls-files --cached --others --exclude-standard -- '*.h' '*.cpp' '*.mm' | sort -u)
echo "check-format: ${#files[@]} files, $(clang-format --version)"
clang-format "${mode[@]}" "${files[@]}"
