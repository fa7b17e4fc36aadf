#!/bin/sh
# Sets up, builds, and starts Zugblick against the practice simulator, on settings and a work
# folder of its own below build/run: a user's own files are never touched. Without a display it
# takes the journey instead: it drives by itself and leaves a picture of every window.
#
# With --direct first, Zugblick loads the practice simulator's library into its own process, as it
# does beside the real simulator, and no network is in between. Other options go to the practice
# simulator.
set -eu
cd "$(dirname "$0")"
direct=
if [ "${1:-}" = --direct ]; then
    direct=yes
    shift
fi
packaging/install-packages.sh

build=$PWD/build/run
export XDG_DATA_HOME="$build/home/data" XDG_CONFIG_HOME="$build/home/config"

cmake --preset run
if [ -z "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
    cmake --build "$build" --target journey
    export ZUGBLICK_PICTURES="$build/pictures" QT_QPA_PLATFORM=offscreen
    mkdir -p "$ZUGBLICK_PICTURES"
    for journey in "$build"/tests/journey/tst_journey*"${direct:+_direct}"; do
        if [ -f "$journey" ] && [ -x "$journey" ]; then "$journey"; fi
    done
    echo "No display here. Pictures of the windows are in $ZUGBLICK_PICTURES"
    exit 0
fi
cmake --build --preset run

practice=$build/practice/zugblick-practice
for option in "$@"; do
    case $option in -h | --help | -v | --version | --list-locos) exec "$practice" "$option" ;; esac
done

work=$build/home/work
mkdir -p "$work" "$XDG_DATA_HOME/Zugblick"
cp -Rn practice/workfolder/. "$work/"
# Says what is wrong with an option, and fails.
"$practice" --list-locos --workfolder "$work" "$@" > /dev/null

# Serves over TCP and the web, on any free ports, and sets `port` and `web` to what it says.
start_bridge() {
    said=$build/home/practice.out
    : > "$said"
    "$practice" --port 0 --web-port 0 --workfolder "$work" "$@" > "$said" &
    bridge=$!
    trap 'kill "$bridge" 2>/dev/null || true' EXIT INT TERM
    tries=0
    until port=$(sed -n 's/^listening on //p' "$said") && grep -q '^web on ' "$said"; do
        kill -0 "$bridge" 2>/dev/null || {
            echo "The practice simulator did not start." >&2
            exit 1
        }
        tries=$((tries + 1))
        [ "$tries" -le 100 ] || { echo "The practice simulator opened no port." >&2; exit 1; }
        sleep 0.1
    done
    web=http://127.0.0.1:$(sed -n 's/^web on //p' "$said")
    echo "What Zugblick sends to the server shows at $web/inbox"
}

if [ -n "$direct" ]; then
    type=0
    port=47812
    web=
    ZUGBLICK_PRACTICE=$(IFS=';' && echo "--workfolder;$work;$*")
    export ZUGBLICK_PRACTICE
else
    type=1
    start_bridge "$@"
fi

cat > "$XDG_DATA_HOME/Zugblick/kabdata.ini" <<INI
[main]
checkversion=false

[ethernet]
ip=127.0.0.1
port=$port

[interface]
type=$type
updateinterval=500

[logging]
level=0

[paths]
workfolder=$work
ts2017=$build/practice/simulator

[url]
host=$web

[user]
name=practice
hash=practice
INI

"$build/src/app/zugblick"
