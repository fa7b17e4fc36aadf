# What a program carries on Windows beside its code.

# zugblick_add_windows_record(zugblick "Zugblick")
#
# Gives a program its version record, from which the status bar takes the version, its icon and
# its manifest. Does nothing on other platforms.
function(zugblick_add_windows_record target description)
  if(NOT WIN32)
    return()
  endif()
  enable_language(RC)
  find_program(ZUGBLICK_ICOTOOL icotool REQUIRED)
  set(out "${CMAKE_CURRENT_BINARY_DIR}/${target}.record")
  file(MAKE_DIRECTORY "${out}")
  set(svg "${CMAKE_SOURCE_DIR}/src/resources/icons/zugblick.svg")
  set(sizes 16 20 24 32 40 48 64 128 256)
  set(render "")
  set(pictures "")
  foreach(size IN LISTS sizes)
    set(picture "${out}/${size}.png")
    list(APPEND render COMMAND "${ZUGBLICK_RSVG}" -w ${size} -o "${picture}" "${svg}")
    if(size GREATER 64)
      list(APPEND pictures "--raw=${picture}")
    else()
      list(APPEND pictures "${picture}")
    endif()
  endforeach()
  set(icon "${out}/zugblick.ico")
  add_custom_command(OUTPUT "${icon}" ${render}
    COMMAND "${ZUGBLICK_ICOTOOL}" -c -o "${icon}" ${pictures}
    DEPENDS "${svg}" COMMENT "Rendering ${target}.ico" VERBATIM)

  set(RECORD_DESCRIPTION "${description}")
  get_target_property(name ${target} OUTPUT_NAME)
  if(NOT name)
    set(name ${target})
  endif()
  set(RECORD_FILE "${name}.exe")
  set(RECORD_ICON "${icon}")
  set(RECORD_MANIFEST "${CMAKE_SOURCE_DIR}/packaging/windows/zugblick.manifest")
  string(REPLACE "." "," RECORD_NUMBERS "${PROJECT_VERSION}")
  configure_file("${CMAKE_SOURCE_DIR}/packaging/windows/zugblick.rc.in" "${out}/record.rc" @ONLY)
  set_source_files_properties("${out}/record.rc" PROPERTIES
    OBJECT_DEPENDS "${icon};${RECORD_MANIFEST}")
  # A target of its own: the compiler's options mean nothing to the resource compiler.
  add_library(${target}-record OBJECT "${out}/record.rc" "${icon}")
  target_sources(${target} PRIVATE "$<TARGET_OBJECTS:${target}-record>")
endfunction()
