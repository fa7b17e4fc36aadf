#!/bin/sh
# Makes the Debian package: build/package/zugblick_<version>_<architecture>.deb. Dependencies are
# computed from what the programs link.
set -eu
cd "$(dirname "$0")/../.."
packaging/install-packages.sh packaging/debian/packages.txt
cmake --preset package
cmake --build --preset package
cd build/package
rm -f ./*.deb
cpack -G DEB
ls ./*.deb
