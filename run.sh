#!/bin/sh
# Sets up, builds, and starts Zugblick against the practice simulator, on settings and a work
# folder of its own below build/run: a user's own files are never touched. Without a display it
# takes the journey instead: it drives by itself and leaves a picture of every window.
#
# With --direct, Zugblick loads the practice simulator's library into its own process, as it does
# beside the real simulator, and no network is in between. Other options go to the practice
# simulator; --help lists them.
set -eu
cd "$(dirname "$0")"
packaging/install-packages.sh

build=$PWD/build/run
cmake --preset run

if [ -z "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
    cmake --build "$build" --target journey
    export XDG_DATA_HOME="$build/home/data" XDG_CONFIG_HOME="$build/home/config"
    export ZUGBLICK_PICTURES="$build/pictures" QT_QPA_PLATFORM=offscreen
    mkdir -p "$ZUGBLICK_PICTURES"
    direct=
    [ "${1:-}" != --direct ] || direct=_direct
    for journey in "$build"/tests/journey/tst_journey*"$direct"; do
        if [ -f "$journey" ] && [ -x "$journey" ]; then "$journey"; fi
    done
    echo "No display here. Pictures of the windows are in $ZUGBLICK_PICTURES"
    exit 0
fi

cmake --build --preset run
exec "$build/practice/zugblick-practice" --front "$build/src/app/zugblick" \
    --workfolder "$build/home" "$@"
