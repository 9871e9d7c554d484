#!/usr/bin/env bash
# Refreshes the binary interface baseline in abi/ (one abidw description per
# library, named after its SONAME) from a build with debug information. Run
# it after a deliberate addition to the interface, or with a new major
# version, and say why in CHANGELOG.md; scripts/check-abi.sh compares every
# later build with what it writes.
set -euo pipefail
exec "$(dirname "$0")/check-abi.sh" --update
