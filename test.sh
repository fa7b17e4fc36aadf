#!/bin/sh
# Sets up, builds, and runs every test: all of them under AddressSanitizer and UBSan, those with
# threads under ThreadSanitizer too, and the fuzz targets on their corpora.
set -eu
cd "$(dirname "$0")"
packaging/install-packages.sh

for preset in asan tsan fuzz; do
    cmake --preset "$preset"
    cmake --build --preset "$preset"
done
ctest --preset tsan
ctest --preset fuzz
ctest --preset asan
