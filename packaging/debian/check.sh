#!/bin/sh
# Checks the package that build.sh made, as root: its texts by lintian and the validators of
# desktop entry and metadata, then in a bare system below build/: it installs, both desktop entries
# show their window under Xvfb, and it is removed without a trace.
#
# A mirror for the bare system may be named as first argument; else the machine's own is taken.
set -eu
cd "$(dirname "$0")/../.."
packaging/install-packages.sh packaging/debian/packages.txt
deb=$(ls build/package/zugblick_*.deb)
assets=packaging/debian

lintian --fail-on error "$deb"
desktop-file-validate "$assets"/*.desktop
appstreamcli validate --no-net "$assets/zugblick.metainfo.xml"

root=$PWD/build/debian-root
mirror=${1:-}
if [ ! -d "$root/usr" ]; then
    # shellcheck disable=SC2086 # no mirror is no argument
    debootstrap --variant=minbase bookworm "$root" $mirror
fi
cp "$deb" "$root/tmp/"
cat > "$root/tmp/check" <<'SH'
set -eu
export DEBIAN_FRONTEND=noninteractive HOME=/root LC_ALL=C.UTF-8
apt-get update -q
apt-get install -q -y --no-install-recommends xvfb xauth x11-utils fonts-dejavu-core procps > /dev/null
dpkg --get-selections | sort > /tmp/before
find / -xdev -path /proc -prune -o -path /tmp -prune -o -path /var -prune -o -print | sort > /tmp/files-before
apt-get install -q -y --no-install-recommends /tmp/zugblick_*.deb > /dev/null

# shows PROGRAM: starts it under Xvfb and waits for the main window.
shows() {
    rm -f /tmp/seen
    xvfb-run -a -s "-screen 0 1366x768x24" sh -c '
        "$0" "$@" & program=$!
        for try in $(seq 100); do
            if xwininfo -root -tree | grep -q "\"Zugblick"; then touch /tmp/seen; break; fi
            sleep 0.2
        done
        sleep 2
        pgrep -a zugblick
        pkill -x zugblick
        wait $program || true' $1
    test -e /tmp/seen || { echo "$1 showed no window" >&2; exit 1; }
}
shows "$(sed -n 's/^Exec=//p' /usr/share/applications/zugblick.desktop)"
practice=$(sed -n 's/^Exec=//p' /usr/share/applications/zugblick-uebungsbetrieb.desktop)
shows "$practice" | tee /tmp/ran
grep -q 'zugblick-practice --front' /tmp/ran || { echo "no practice simulator ran" >&2; exit 1; }

apt-get purge -q -y zugblick > /dev/null
apt-get autoremove --purge -q -y > /dev/null
dpkg --get-selections | sort | diff /tmp/before -
find / -xdev -iname '*zugblick*' -not -path '/tmp/*' -not -path '/root/*' -not -path '/proc/*' | grep . && exit 1
echo "The package installs, starts and goes without a trace."
SH
for place in proc dev; do mount --bind "/$place" "$root/$place"; done
trap 'umount "$root/proc" "$root/dev"' EXIT
chroot "$root" sh /tmp/check
