# Pictures and fonts. Art stands in the tree as SVG; the build renders it at 1x and @2x and
# compiles it in under names without suffix (":/icons/icon_mtd"), which is how screens ask for it.

find_program(ZUGBLICK_RSVG rsvg-convert REQUIRED)

# zugblick_add_art(target PREFIX icons FOLDER dir ROWS "name width" ...)
#
# Renders dir/name.svg to `width` logical pixels. Adding a picture is one row.
function(zugblick_add_art target)
  cmake_parse_arguments(arg "" "PREFIX;FOLDER" "ROWS" ${ARGN})
  set(out "${CMAKE_CURRENT_BINARY_DIR}/art")
  file(MAKE_DIRECTORY "${out}")
  set(entries "")
  set(pictures "")
  foreach(row IN LISTS arg_ROWS)
    separate_arguments(row UNIX_COMMAND "${row}")
    list(GET row 0 name)
    list(GET row 1 width)
    math(EXPR width2 "${width} * 2")
    set(svg "${arg_FOLDER}/${name}.svg")
    add_custom_command(
      OUTPUT "${out}/${name}.png" "${out}/${name}@2x.png"
      COMMAND "${ZUGBLICK_RSVG}" -w ${width} -o "${out}/${name}.png" "${svg}"
      COMMAND "${ZUGBLICK_RSVG}" -w ${width2} -o "${out}/${name}@2x.png" "${svg}"
      DEPENDS "${svg}"
      COMMENT "Rendering ${name}"
      VERBATIM)
    list(APPEND pictures "${out}/${name}.png" "${out}/${name}@2x.png")
    string(APPEND entries
      "    <file alias=\"${name}\">${name}.png</file>\n"
      "    <file alias=\"${name}@2x\">${name}@2x.png</file>\n")
  endforeach()
  file(CONFIGURE OUTPUT "${out}/${arg_PREFIX}.qrc" CONTENT
    "<RCC>\n  <qresource prefix=\"/${arg_PREFIX}\">\n${entries}  </qresource>\n</RCC>\n")
  target_sources(${target} PRIVATE "${out}/${arg_PREFIX}.qrc" ${pictures})
endfunction()

# zugblick_add_font(target alias file-name hint-package)
#
# Compiles a face of the distribution in under ":/fonts/<alias>".
function(zugblick_add_font target alias file package)
  find_file(ZUGBLICK_FONT_${alias} ${file}
    PATHS /usr/share/fonts/truetype/dseg /usr/share/fonts/truetype/noto
          /usr/share/fonts/truetype/dejavu /usr/share/fonts/truetype/liberation
    NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH) # of this side, for every platform
  if(NOT ZUGBLICK_FONT_${alias})
    message(FATAL_ERROR "${file} not found; Debian has it in ${package}. "
                        "Elsewhere set ZUGBLICK_FONT_${alias} to the file.")
  endif()
  set(out "${CMAKE_CURRENT_BINARY_DIR}/fonts")
  configure_file("${ZUGBLICK_FONT_${alias}}" "${out}/${alias}.ttf" COPYONLY)
  file(CONFIGURE OUTPUT "${out}/font_${alias}.qrc" CONTENT
    "<RCC>\n  <qresource prefix=\"/fonts\">\n    <file alias=\"${alias}\">${alias}.ttf</file>\n  </qresource>\n</RCC>\n")
  target_sources(${target} PRIVATE "${out}/font_${alias}.qrc")
endfunction()
