#!/bin/sh
# Installs what packages.txt, and each list given beside it, names and the system lacks: as root, or
# through sudo. Without either it prints the one line that does it, and fails.
set -eu
here=$(cd "$(dirname "$0")" && pwd)

if ! command -v dpkg-query >/dev/null 2>&1; then
    echo "This is no Debian system. Install the counterparts of $here/packages.txt by hand." >&2
    exit 0
fi

missing=
for package in $(sed 's/#.*//' "$here/packages.txt" "$@"); do
    status=$(dpkg-query -W -f='${Status}' "$package" 2>/dev/null || true)
    case $status in
        *" installed") ;;
        *) missing="$missing $package" ;;
    esac
done
[ -n "$missing" ] || exit 0

if [ "$(id -u)" -eq 0 ]; then
    as_root=
elif command -v sudo >/dev/null 2>&1 && sudo -v; then
    as_root=sudo
else
    echo "Zugblick needs packages that are not installed. As root, run:" >&2
    echo "  apt-get update && apt-get install --no-install-recommends$missing" >&2
    exit 1
fi

echo "Installing:$missing"
$as_root apt-get update -q
# shellcheck disable=SC2086 # a list of names, one word each
$as_root env DEBIAN_FRONTEND=noninteractive apt-get install -q -y --no-install-recommends $missing
