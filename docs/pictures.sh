#!/bin/sh
# Makes the pictures of the handbook: builds the journeys and the tests of the windows that no
# journey opens, lets them leave their pictures below build/run, and takes over those that the
# table names. To be run, and its result committed, when screens have changed.
set -eu
cd "$(dirname "$0")/.."

build=$PWD/build/run
left=$build/handbook
windows="tst_cabeditor tst_routeinfo tst_planeditors"

[ -f "$build/build.ninja" ] || cmake --preset run
# shellcheck disable=SC2086 # one target each
cmake --build "$build" --target journey $windows
rm -rf "$left"
# A dot of the picture is one of the design.
QT_FONT_DPI=96 ZUGBLICK_PICTURES=$left ctest --test-dir "$build" --output-on-failure \
    -R "^(tst_journey.*|$(echo "$windows" | tr ' ' '|'))\$"

# The picture that a test leaves, and its name in the handbook.
table="
main_960x600                    main
server_user                     settings
config_live                     configurator
config_assign                   assign
config_overview                 overview
mfa_BR_101                      mfa_br101
mfa_BR_145                      mfa_br145
mfa_BR_155                      mfa_br155
mfa_8090                        mfa_oebb8090
mfa_Railjet                     mfa_railjet
entry_overview                  mfa_entry
mfa_BR_442_night                mfa_br442
mtd_BR_145_0_day                mtd_br145
mtd_BR_145_1_day                mtd_effort
mtd_BR_145_4_day                mtd_zde
mtd_Railjet_0_day               mtd_railjet
mtd_system_voltage              mtd_system
mtd_functions_on                mtd_functions
us_main                         us_main
us_track                        us_track
pressure                        pressure
ebula_day                       ebula
ebula_load                      ebula_load
ebula_fsd                       ebula_fsd
ebula_halte                     ebula_halte
sfp_1366                        roadmap_editor
tfp_1366                        timetable_editor
server_radioButton_timetable    catalogue
cabeditor                       cabeditor
routeinfo                       routeinfo
"
mkdir "$left/taken"
echo "$table" | while read -r from to; do
    [ -z "$from" ] || cp "$left/$from.png" "$left/taken/$to.png"
done
rm -f docs/pictures/*.png
cp "$left"/taken/*.png docs/pictures/
for name in $(grep -oh 'pictures/[a-z0-9_]*\.png' docs/handbuch.md README.md | sort -u); do
    [ -f "docs/${name#docs/}" ] || { echo "docs/$name is missing" >&2; exit 1; }
done
if command -v optipng >/dev/null; then
    optipng -quiet docs/pictures/*.png
fi
du -sh docs/pictures
