#!/bin/sh
# An hour (or as many minutes as the argument says) of Zugblick against the practice simulator,
# with all displays open, changing locos and a breaking link. Prints memory and CPU once a minute.
set -eu
cd "$(dirname "$0")/.."
packaging/install-packages.sh >&2
cmake --preset release >&2
cmake --build --preset release --target soak zugblick-practice >&2
exec build/release/bench/app/soak "${1:-60}" build/release/practice/zugblick-practice
