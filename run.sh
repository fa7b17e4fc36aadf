#!/bin/sh
# Sets up, builds, and starts Zugblick against the practice simulator, on settings and a work
# folder of its own below build/run: a user's own files are never touched. Without a display it
# takes the journey instead: it drives by itself and leaves a picture of every window.
set -eu
cd "$(dirname "$0")"
packaging/install-packages.sh

build=$PWD/build/run
export XDG_DATA_HOME="$build/home/data" XDG_CONFIG_HOME="$build/home/config"

cmake --preset run
if [ -z "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
    cmake --build "$build" --target tst_journey
    export ZUGBLICK_PICTURES="$build/pictures" QT_QPA_PLATFORM=offscreen
    mkdir -p "$ZUGBLICK_PICTURES"
    "$build/tests/journey/tst_journey"
    echo "No display here. Pictures of the windows are in $ZUGBLICK_PICTURES"
    exit 0
fi
cmake --build --preset run

# The practice simulator takes any free port and says which.
work=$build/home/work
mkdir -p "$work" "$XDG_DATA_HOME/Zugblick"
cp -Rn practice/workfolder/. "$work/"
said=$build/home/practice.out
: > "$said"
"$build/practice/zugblick-practice" --port 0 --web-port 0 --workfolder "$work" "$@" > "$said" &
practice=$!
trap 'kill "$practice" 2>/dev/null || true' EXIT INT TERM
tries=0
until port=$(sed -n 's/^listening on //p' "$said") && grep -q '^web on ' "$said"; do
    kill -0 "$practice" 2>/dev/null || { echo "The practice simulator did not start." >&2; exit 1; }
    tries=$((tries + 1))
    [ "$tries" -le 100 ] || { echo "The practice simulator opened no port." >&2; exit 1; }
    sleep 0.1
done

web=$(sed -n 's/^web on //p' "$said")
echo "What Zugblick sends to the server shows at http://127.0.0.1:$web/inbox"

cat > "$XDG_DATA_HOME/Zugblick/kabdata.ini" <<INI
[main]
checkversion=false

[ethernet]
ip=127.0.0.1
port=$port

[interface]
type=1
updateinterval=500

[logging]
level=0

[paths]
workfolder=$work

[url]
host=http://127.0.0.1:$web

[user]
name=practice
hash=practice
INI

"$build/src/app/zugblick"
