# What an installed Zugblick consists of, and the Debian package of it. On Windows the folder is
# put together by packaging/windows.
include(GNUInstallDirs)
set(assets "${CMAKE_SOURCE_DIR}/packaging/debian")
set(doc "${CMAKE_INSTALL_DATADIR}/doc/zugblick")

install(TARGETS zugblick zugblick-practice RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}")
install(TARGETS practice-raildriver LIBRARY DESTINATION lib/zugblick/simulator/plugins)
install(DIRECTORY "${CMAKE_BINARY_DIR}/practice/simulator/Content"
        DESTINATION lib/zugblick/simulator)

foreach(entry zugblick zugblick-uebungsbetrieb)
  install(FILES "${assets}/${entry}.desktop"
          DESTINATION "${CMAKE_INSTALL_DATADIR}/applications")
endforeach()
install(FILES "${assets}/zugblick.metainfo.xml" DESTINATION "${CMAKE_INSTALL_DATADIR}/metainfo")

# The program's icon in the sizes that desktops ask for.
set(icon "${CMAKE_SOURCE_DIR}/src/resources/icons/zugblick.svg")
set(hicolor "${CMAKE_INSTALL_DATADIR}/icons/hicolor")
set(made "")
foreach(size 16 22 24 32 48 64 128 256)
  set(picture "${CMAKE_BINARY_DIR}/icons/zugblick-${size}.png")
  add_custom_command(OUTPUT "${picture}"
    COMMAND "${ZUGBLICK_RSVG}" -w ${size} -h ${size} -o "${picture}" "${icon}"
    DEPENDS "${icon}" VERBATIM)
  list(APPEND made "${picture}")
  install(FILES "${picture}" DESTINATION "${hicolor}/${size}x${size}/apps" RENAME zugblick.png)
endforeach()
file(MAKE_DIRECTORY "${CMAKE_BINARY_DIR}/icons")
add_custom_target(zugblick_icons ALL DEPENDS ${made})
install(FILES "${icon}" DESTINATION "${hicolor}/scalable/apps")

# Man pages and the changelog are packed without a time stamp, so that the package is the same
# whenever it is built.
find_program(ZUGBLICK_GZIP gzip REQUIRED)
function(zugblick_install_packed source name destination)
  set(packed "${CMAKE_BINARY_DIR}/packed/${name}.gz")
  add_custom_command(OUTPUT "${packed}"
    COMMAND sh -c "\"$0\" -9nc \"$1\" > \"$2\"" "${ZUGBLICK_GZIP}" "${source}" "${packed}"
    DEPENDS "${source}" VERBATIM)
  add_custom_target(packed_${name} ALL DEPENDS "${packed}")
  install(FILES "${packed}" DESTINATION "${destination}")
endfunction()
file(MAKE_DIRECTORY "${CMAKE_BINARY_DIR}/packed")
foreach(page zugblick zugblick-practice)
  zugblick_install_packed("${assets}/${page}.1" ${page}.1 "${CMAKE_INSTALL_MANDIR}/man1")
endforeach()
zugblick_install_packed("${assets}/changelog" changelog "${doc}")
install(FILES "${assets}/copyright" DESTINATION "${doc}")
install(FILES docs/handbuch.md DESTINATION "${doc}")
install(DIRECTORY docs/pictures DESTINATION "${doc}")

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME zugblick)
set(CPACK_PACKAGE_VENDOR "Zugblick")
set(CPACK_PACKAGE_CONTACT "Zugblick Maintainers <maintainers@zugblick.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "driver's-cab displays beside a PC rail simulator")
set(CPACK_PACKAGE_VERSION "${PROJECT_VERSION}")
set(CPACK_PACKAGE_DESCRIPTION
"Zugblick connects to a running rail simulator, learns which loco is driven,
and draws that loco's displays in windows of their own: MFA screens with PZB,
LZB and Sifa, MTD touch screens, the EBuLa timetable, a North American ES44AC
screen and pressure gauges. The displays write back, so that a driver enters
train data as in a real cab.
.
Editors for route plans and timetables and a configurator for locos stand
beside them. A small practice simulator comes along for trying it all.")
set(CPACK_STRIP_FILES ON)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "fonts-dejavu-core, fonts-liberation, osmctools")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
include(CPack)
