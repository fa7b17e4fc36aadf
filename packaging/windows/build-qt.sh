#!/bin/sh
# Cross-builds for 64-bit Windows what Zugblick stands on, from Debian's own source packages, into
# a cache folder that is named first: below it qt/, quazip/, httplib/, and their terms in licences/.
# What stands there already is used as it is; what was broken off starts anew. Qt takes a quarter
# of an hour on two cores, and 1.5 GB while it works.
set -eu
here=$(cd "$(dirname "$0")" && pwd)
mkdir -p "$1"
cache=$(cd "$1" && pwd)
sources=$cache/sources
jobs=$(nproc)

# An index of source packages of our own leaves the system's as it is.
own_apt() {
    apt-get -q -o Dir::Etc::sourcelist="$sources/debian.sources" -o Dir::Etc::sourceparts=/dev/null \
        -o Dir::State::lists="$sources/lists" -o Dir::Cache="$sources/cache" \
        -o APT::Sandbox::User="$(id -un)" "$@"
}

write_index() {
    mkdir -p "$sources/lists/partial" "$sources/cache/archives/partial"
    if [ -f /etc/apt/sources.list.d/debian.sources ]; then
        sed 's/^Types:.*/Types: deb-src/' /etc/apt/sources.list.d/debian.sources \
            > "$sources/debian.sources"
    else
        cat > "$sources/debian.sources" <<'SOURCES'
Types: deb-src
URIs: http://deb.debian.org/debian
Suites: bookworm
Components: main
Signed-By: /usr/share/keyrings/debian-archive-keyring.gpg
SOURCES
    fi
    own_apt update
}

# fetch PACKAGE: unpacks it as $sources/PACKAGE
fetch() {
    [ -f "$sources/debian.sources" ] || write_index
    rm -rf "$sources/unpack" "${sources:?}/$1"
    mkdir -p "$sources/unpack"
    (cd "$sources/unpack" && own_apt source --only-source "$1")
    mv "$sources"/unpack/*/ "$sources/$1"
    mkdir -p "$cache/licences"
    cp "$sources/$1/debian/copyright" "$cache/licences/$1.txt"
}

build_qt() {
    fetch qtbase-opensource-src
    # The cross compiler's libraries are in lower case, and the file system here tells the cases apart.
    sed -i 's/-lSecur32/-lsecur32/; s/-lCrypt32/-lcrypt32/' \
        "$sources/qtbase-opensource-src/src/network/ssl/ssl.pri"
    rm -rf "$sources/qt-build" "$cache/qt.partial"
    mkdir -p "$sources/qt-build"
    (
        cd "$sources/qt-build"
        ../qtbase-opensource-src/configure -opensource -confirm-license -release -shared \
            -xplatform win32-g++ -device-option CROSS_COMPILE=x86_64-w64-mingw32- \
            -prefix "$cache/qt.partial" -hostprefix "$cache/qt.partial" \
            -no-opengl -no-icu -no-openssl -schannel -no-dbus -no-iconv -no-pkg-config \
            -no-direct2d -no-feature-sql -no-feature-tabletevent -no-feature-vulkan \
            -qt-zlib -qt-pcre -qt-freetype -qt-harfbuzz -qt-libpng -qt-libjpeg \
            -qt-doubleconversion -nomake examples -nomake tests -nomake tools \
            -no-compile-examples -no-warnings-are-errors
        make -s -j"$jobs"
        make -s install
    )
    mv "$cache/qt.partial" "$cache/qt"
    rm -rf "$sources/qt-build" "$sources/qtbase-opensource-src"
}

build_quazip() {
    fetch libquazip1-qt5
    rm -rf "$sources/quazip-build" "$cache/quazip.partial"
    cmake -S "$sources/libquazip1-qt5" -B "$sources/quazip-build" -G Ninja \
        -DCMAKE_TOOLCHAIN_FILE="$here/toolchain.cmake" -DZUGBLICK_WINDOWS_CACHE="$cache" \
        -DCMAKE_BUILD_TYPE=Release -DCMAKE_INSTALL_PREFIX="$cache/quazip.partial" \
        -DQUAZIP_QT_MAJOR_VERSION=5 -DQUAZIP_BZIP2=OFF
    cmake --build "$sources/quazip-build" --parallel "$jobs"
    cmake --install "$sources/quazip-build"
    mv "$cache/quazip.partial" "$cache/quazip"
    rm -rf "$sources/quazip-build" "$sources/libquazip1-qt5"
}

# Debian's own package of it is a library for Linux; its source is one header for all systems.
take_httplib() {
    fetch cpp-httplib
    rm -rf "$cache/httplib.partial"
    mkdir -p "$cache/httplib.partial/include"
    cp "$sources/cpp-httplib/httplib.h" "$cache/httplib.partial/include/"
    cat > "$cache/httplib.partial/cpp-httplib.pc" <<'PKGCONFIG'
includedir=${pcfiledir}/include

Name: cpp-httplib
Description: A C++ HTTP server and client library
Version: 0
Cflags: -I${includedir}
Libs: -lws2_32 -lcrypt32
PKGCONFIG
    mv "$cache/httplib.partial" "$cache/httplib"
}

[ -d "$cache/qt" ] || build_qt
[ -d "$cache/quazip" ] || build_quazip
[ -d "$cache/httplib" ] || take_httplib
rm -rf "$sources"
