#!/bin/sh
# Starts the practice simulator and Zugblick in front of it, on settings and a work folder of their
# own: a user's own files are never touched. When Zugblick is closed, both have ended.
#
# With --direct first, Zugblick loads the practice simulator's library into its own process, as it
# does beside the real simulator, and no network is in between. Other options go to the practice
# simulator.
#
# As installed it needs no variable; a build tree names its own places.
set -eu
zugblick=${ZUGBLICK_PROGRAM:-zugblick}
practice=${ZUGBLICK_PRACTICE_PROGRAM:-zugblick-practice}
samples=${ZUGBLICK_SAMPLES:-/usr/share/zugblick/workfolder}
simulator=${ZUGBLICK_SIMULATOR:-/usr/lib/zugblick/simulator}
home=${ZUGBLICK_PRACTICE_HOME:-${XDG_DATA_HOME:-$HOME/.local/share}/zugblick-uebungsbetrieb}

direct=
if [ "${1:-}" = --direct ]; then
    direct=yes
    shift
fi
for option in "$@"; do
    case $option in -h | --help | -v | --version | --list-locos) exec "$practice" "$option" ;; esac
done
"$practice" --list-locos "$@" > /dev/null # says what is wrong with an option, and fails

export XDG_DATA_HOME="$home/data" XDG_CONFIG_HOME="$home/config"
work=$home/work
mkdir -p "$work" "$XDG_DATA_HOME/Zugblick"
cp -Rn "$samples/." "$work/"
chmod -R u+w "$work"

bridge=
shown=
trap 'kill $shown $bridge 2>/dev/null || true' EXIT
trap 'exit 1' INT TERM

# Serves over TCP and the web, on any free ports, and sets `port` and `web` to what it says.
start_bridge() {
    said=$home/practice.out
    : > "$said"
    "$practice" --port 0 --web-port 0 --workfolder "$work" "$@" > "$said" &
    bridge=$!
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
    ZUGBLICK_PRACTICE=$(IFS=';' && echo "$*")
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
ts2017=$simulator

[url]
host=$web

[user]
name=practice
hash=practice
INI

# In the background, so that a signal to this script is heard while the window stands.
"$zugblick" &
shown=$!
status=0
wait "$shown" || status=$?
shown=
exit "$status"
