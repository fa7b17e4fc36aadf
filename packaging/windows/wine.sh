#!/bin/sh
# Runs a Windows program of the build tree under Wine, in a prefix of its own: CTest takes it for
# every test. Wine keeps QT_ variables to itself, so they go in with its own prefix.
set -eu
root=$(cd "$(dirname "$0")/../.." && pwd)
tree=$root/build/windows/tree
cache=$(sed -n 's/^ZUGBLICK_WINDOWS_CACHE:[A-Z]*=//p' "$tree/CMakeCache.txt")

export WINEPREFIX="$root/build/windows/wine" WINEDEBUG="${WINEDEBUG:--all}"
for name in $(env | sed -n 's/^\(QT_[A-Z_]*\)=.*/\1/p'); do
    eval "export WINE$name=\"\$$name\""
done
export WINEQT_FORCE_STDERR_LOGGING=1
export WINEQT_QPA_FONTDIR="Z:$root/build/windows/fonts"

# in_windows FOLDER...: as one search path
in_windows() {
    printf 'Z:%s;' "$@" | tr / '\\'
}
gcc=$(dirname "$(x86_64-w64-mingw32-g++-posix -print-libgcc-file-name)")
WINEPATH=$(in_windows "$tree/packaging/windows" "$cache/qt/bin" "$cache/quazip/bin" "$gcc" /usr/x86_64-w64-mingw32/lib)
export WINEPATH

# What Wine starts beside the program lives longer and keeps its output open; CTest waits for the
# end of that.
said=$(mktemp)
trap 'rm -f "$said"' EXIT
result=0
/usr/lib/wine/wine64 "$@" > "$said" 2>&1 || result=$?
cat "$said"
exit "$result"
