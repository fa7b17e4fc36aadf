#!/bin/sh
# Makes, from a bare Debian 12, build/windows/Zugblick-<version>/ with all that Zugblick and the
# practice simulator load on 64-bit Windows, and a zip of it.
#
# Qt is cross-built by the first run only; it is kept in build/windows/cache, or in the folder that
# ZUGBLICK_WINDOWS_CACHE names.
set -eu
cd "$(dirname "$0")/../.."
packaging/install-packages.sh packaging/windows/packages.txt

cache=${ZUGBLICK_WINDOWS_CACHE:-$PWD/build/windows/cache}
tree=$PWD/build/windows/tree
packaging/windows/build-qt.sh "$cache"

cmake -S . -B "$tree" -G Ninja -DCMAKE_TOOLCHAIN_FILE="$PWD/packaging/windows/toolchain.cmake" \
    -DZUGBLICK_WINDOWS_CACHE="$cache" -DCMAKE_BUILD_TYPE=Release \
    -DCMAKE_CROSSCOMPILING_EMULATOR="$PWD/packaging/windows/wine.sh"
cmake --build "$tree" --target zugblick zugblick-practice practice-raildriver practice-steam \
    zugblick_practice_simulator

version=$(sed -n 's/^CMAKE_PROJECT_VERSION:STATIC=//p' "$tree/CMakeCache.txt")
name=Zugblick-$version
parcel=$PWD/build/windows/$name

put_programs() {
    cp "$tree/src/app/Zugblick.exe" "$tree/practice/zugblick-practice.exe" "$parcel/"
    sed 's/$/\r/' packaging/windows/Uebungsbetrieb.cmd > "$parcel/Uebungsbetrieb.cmd"
    mkdir -p "$parcel/simulator/plugins"
    cp -R "$tree/practice/simulator/Content" "$tree/practice/simulator/steam_api.dll" \
        "$parcel/simulator/"
    cp "$tree/practice/simulator/plugins/RailDriver64.dll" "$parcel/simulator/plugins/"
    cp -R practice/workfolder "$parcel/workfolder"
    for plugin in platforms/qwindows styles/qwindowsvistastyle imageformats/qgif \
        imageformats/qico imageformats/qjpeg; do
        mkdir -p "$parcel/${plugin%/*}"
        cp "$cache/qt/plugins/$plugin.dll" "$parcel/${plugin%/*}/"
    done
}

# Copies the libraries that those in the parcel ask for, until none is missing. What none of the
# folders has belongs to Windows.
put_libraries() {
    gcc=$(dirname "$(x86_64-w64-mingw32-g++-posix -print-libgcc-file-name)")
    found=yes
    while [ -n "$found" ]; do
        found=
        for library in $(find "$parcel" -name '*.exe' -o -name '*.dll' | tr '\n' '\0' \
            | xargs -0 x86_64-w64-mingw32-objdump -p | sed -n 's/^\tDLL Name: //p' | sort -u); do
            [ ! -f "$parcel/$library" ] || continue
            for folder in "$cache/qt/bin" "$cache/quazip/bin" "$gcc" /usr/x86_64-w64-mingw32/lib; do
                if [ -f "$folder/$library" ]; then
                    cp "$folder/$library" "$parcel/"
                    found=yes
                    break
                fi
            done
        done
    done
}

put_handbook() {
    mkdir -p "$parcel/handbuch/pictures"
    cp docs/handbuch.md "$parcel/handbuch/"
    sed -n 's/.*(pictures\/\([^)]*\)).*/\1/p' docs/handbuch.md | while read -r picture; do
        cp "docs/pictures/$picture" "$parcel/handbuch/pictures/" \
            || echo "The handbook lacks its picture $picture." >&2
    done
}

put_licences() {
    cp LICENSE "$parcel/"
    mkdir "$parcel/licences"
    cp "$cache"/licences/*.txt "$parcel/licences/"
    for package in g++-mingw-w64-x86-64-posix mingw-w64-x86-64-dev libz-mingw-w64 fonts-dseg \
        fonts-noto-core; do
        cp "/usr/share/doc/$package/copyright" "$parcel/licences/$package.txt"
    done
}

rm -rf "$parcel" "$parcel-win64.zip"
mkdir -p "$parcel"
put_programs
put_libraries
put_handbook
put_licences
find "$parcel" \( -name '*.exe' -o -name '*.dll' \) -exec x86_64-w64-mingw32-strip {} +
(cd "$parcel/.." && zip -q -r -9 -X "$name-win64.zip" "$name")
echo "Windows folder: $parcel"
echo "Windows zip: $parcel-win64.zip"
