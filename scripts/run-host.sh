#!/usr/bin/env bash
# Builds the library, the sample plug-ins and the sample host's bundle (in
# build-host/), then starts the host from the bundle. Arguments go to the
# host: --report [--json] [image...] prints what it loaded and opens images
# without a window; --help lists the rest. Without a display the window runs
# on a virtual one (Xvfb).
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/setup.sh
cmake -S . -B build-host -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DPELKARO_BUILD_TESTS=OFF >/dev/null
cmake --build build-host --parallel "$(nproc)" --target pelkaro_bundle

host=build-host/Pelkaro.app/Contents/MacOS/Pelkaro
for argument in "$@"; do
    if [[ "$argument" == "--report" || "$argument" == "--help" ]]; then
        exec env QT_QPA_PLATFORM=offscreen "$host" "$@"
    fi
done
if [[ -z "${DISPLAY:-}" && -z "${WAYLAND_DISPLAY:-}" ]]; then
    echo "run-host: no display; starting the window on a virtual one (xvfb-run)" >&2
    exec xvfb-run -a "$host" "$@"
fi
exec "$host" "$@"
