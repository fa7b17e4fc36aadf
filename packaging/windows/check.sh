#!/bin/sh
# Tries the Windows build under Wine: all tests, the journeys among them, cross-built; then the
# program out of the zip, alone and in front of the practice simulator. Options go to ctest.
set -eu
cd "$(dirname "$0")/../.."
packaging/windows/build.sh
out=$PWD/build/windows
tree=$out/tree
export WINEPREFIX="$out/wine" WINEDEBUG=-all

# Ends what Wine keeps running in its prefix: it would stay on the screen that it began with.
end_session() {
    [ -d "$WINEPREFIX" ] || return 0
    /usr/lib/wine/wineserver64 -k || true # fails when nothing runs
    /usr/lib/wine/wineserver64 -w
}
trap 'end_session' EXIT

registry() {
    /usr/lib/wine/wine64 reg add "$@" /f > "$out/wine.log" 2>&1
}

# A virtual desktop, since without one every window costs seconds; no box that waits for a click
# after a crash; no offer to fetch what no test needs.
make_prefix() {
    export WINEDLLOVERRIDES="mscoree,mshtml="
    xvfb-run -a /usr/lib/wine/wine64 wineboot -i > "$out/wine.log" 2>&1
    registry 'HKCU\Software\Wine' /v Version /d win10
    registry 'HKCU\Software\Wine\Explorer' /v Desktop /d Default
    registry 'HKCU\Software\Wine\Explorer\Desktops' /v Default /d 1280x800
    registry 'HKCU\Software\Wine\WineDbg' /v ShowCrashDialog /t REG_DWORD /d 0
    unset WINEDLLOVERRIDES
    end_session
    touch "$WINEPREFIX/made"
}

# The offscreen platform has no other faces than those of one folder.
put_fonts() {
    mkdir -p "$out/fonts"
    cp /usr/share/fonts/truetype/dejavu/*.ttf /usr/share/fonts/truetype/liberation/*.ttf \
        "$out/fonts/"
}

# start VERSION PROGRAM OPTION...: from the unpacked zip, on a screen; its window has to come up, and
# the program has to end by itself once that is closed. Nothing but the zip's own libraries is in
# reach.
start() {
    end_session
    (cd "$out/unpacked/$name" && xvfb-run -a -s '-screen 0 1280x800x24' \
        /usr/lib/wine/wine64 "$tree/packaging/windows/show_and_close.exe" "$@")
}

[ -f "$WINEPREFIX/made" ] || {
    rm -rf "$WINEPREFIX"
    make_prefix
}
put_fonts
cmake --build "$tree"
ctest --test-dir "$tree" --output-on-failure --parallel "$(nproc)" "$@"

version=$(sed -n 's/^CMAKE_PROJECT_VERSION:STATIC=//p' "$tree/CMakeCache.txt")
name=Zugblick-$version
rm -rf "$out/unpacked" "$out/data"
mkdir -p "$out/unpacked" "$out/data"
unzip -q "$out/$name-win64.zip" -d "$out/unpacked"
start "$version" Zugblick.exe --data "Z:$out/data/alone"
start "$version" zugblick-practice.exe --front Zugblick.exe --workfolder "Z:$out/data/practice"
echo "Windows check passed."
