# The tests run under a locale with a decimal comma. Where the system has its sources (Debian's
# package "locales"), it is compiled below the build folder, so that none need be installed.
set(ZUGBLICK_LOCALES "${CMAKE_BINARY_DIR}/locales")
find_program(ZUGBLICK_LOCALEDEF localedef)
if(ZUGBLICK_LOCALEDEF AND NOT EXISTS "${ZUGBLICK_LOCALES}/de_DE.UTF-8")
  file(MAKE_DIRECTORY "${ZUGBLICK_LOCALES}")
  execute_process(COMMAND "${ZUGBLICK_LOCALEDEF}" -i de_DE -f UTF-8
                          "${ZUGBLICK_LOCALES}/de_DE.UTF-8"
                  RESULT_VARIABLE locale_result OUTPUT_QUIET ERROR_QUIET)
  if(NOT locale_result EQUAL 0)
    message(STATUS "no de_DE locale: tests run with the C library's default locale")
  endif()
endif()
