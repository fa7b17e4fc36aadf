# What every target of the house shares: language level, warnings, Qt definitions, sanitizers,
# precompiled headers, and the functions that declare a room or a test.

set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_AUTOMOC ON)
set(CMAKE_AUTORCC ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

find_program(ZUGBLICK_CCACHE ccache)
if(ZUGBLICK_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  # Without the sloppiness, ccache refuses every unit that uses a precompiled header.
  set(CMAKE_CXX_COMPILER_LAUNCHER
      "${CMAKE_COMMAND};-E;env;CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime;${ZUGBLICK_CCACHE}")
endif()

add_library(zugblick_options INTERFACE)
target_compile_definitions(zugblick_options INTERFACE
  QT_NO_CAST_TO_ASCII
  QT_NO_URL_CAST_FROM_STRING
  QT_NO_NARROWING_CONVERSIONS_IN_CONNECT
  QT_NO_FOREACH
  QT_DEPRECATED_WARNINGS
  QT_DISABLE_DEPRECATED_BEFORE=0x050F00
  NOMINMAX)
if(CMAKE_CXX_COMPILER_ID MATCHES "GNU|Clang")
  target_compile_options(zugblick_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual
    -Wcast-align -Wunused -Wextra-semi -Wformat=2 -Werror)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    target_compile_options(zugblick_options INTERFACE
      -Wsuggest-override -Wduplicated-cond -Wlogical-op -fpch-preprocess)
    if(MINGW)
      # It takes the head of a QVector's data for the whole of it.
      target_compile_options(zugblick_options INTERFACE -Wno-stringop-overflow)
    endif()
  else()
    # The logging macros of Qt leave the variadic part empty.
    target_compile_options(zugblick_options INTERFACE -Wno-gnu-zero-variadic-macro-arguments)
  endif()
endif()
if(ZUGBLICK_SANITIZE)
  target_compile_options(zugblick_options INTERFACE
    -fsanitize=${ZUGBLICK_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
  target_link_options(zugblick_options INTERFACE -fsanitize=${ZUGBLICK_SANITIZE})
endif()

# One precompiled header serves all rooms with widgets, one all rooms without, one all tests. A
# target that reuses one must see the same Qt modules as the target that made it.
function(zugblick_make_pch name)
  cmake_parse_arguments(arg "" "" "HEADERS;LINK" ${ARGN})
  file(WRITE "${CMAKE_BINARY_DIR}/pch/${name}.cpp" "// only carries the precompiled header\n")
  add_library(${name} OBJECT "${CMAKE_BINARY_DIR}/pch/${name}.cpp")
  set_target_properties(${name} PROPERTIES AUTOMOC OFF AUTOUIC OFF AUTORCC OFF)
  target_link_libraries(${name} PRIVATE zugblick_options ${arg_LINK})
  target_precompile_headers(${name} PRIVATE ${arg_HEADERS})
endfunction()

# zugblick_add_room(core SOURCES ... LINK ... [WIDGETS])
#
# A room is one folder and one static library, zugblick_<name>, that exports its own folder as
# include path and nothing else. LINK names the rooms above it; a header of any other room is
# not found by the compiler.
function(zugblick_add_room name)
  cmake_parse_arguments(arg "WIDGETS" "" "SOURCES;LINK" ${ARGN})
  set(target zugblick_${name})
  add_library(${target} STATIC ${arg_SOURCES})
  target_include_directories(${target} PUBLIC "${CMAKE_CURRENT_SOURCE_DIR}")
  target_link_libraries(${target} PRIVATE zugblick_options)
  if(arg_WIDGETS)
    target_link_libraries(${target} PUBLIC ${arg_LINK} Qt5::Widgets Qt5::Network)
    target_precompile_headers(${target} REUSE_FROM zugblick_pch_widgets)
    target_include_directories(${target} PRIVATE "${CMAKE_BINARY_DIR}/src/forms")
    add_dependencies(${target} zugblick_forms)
  else()
    target_link_libraries(${target} PUBLIC ${arg_LINK} Qt5::Gui Qt5::Network)
    target_precompile_headers(${target} REUSE_FROM zugblick_pch_core)
  endif()
endfunction()

# zugblick_add_test(tst_job LINK zugblick_core [SOURCES more.cpp ...] [LABELS thread] [TIMEOUT 60])
#
# One executable from <name>.cpp. CTest itself sets platform, locale and folders, so that a bare
# `ctest` works and never touches the user's settings. The locale has a decimal comma: a number
# that is read or written in the user's locale instead of the C locale fails here.
function(zugblick_add_test name)
  cmake_parse_arguments(arg "" "TIMEOUT" "SOURCES;LINK;LABELS;ARGS" ${ARGN})
  if(NOT arg_TIMEOUT)
    set(arg_TIMEOUT 120)
  endif()
  add_executable(${name} ${name}.cpp ${arg_SOURCES})
  target_link_libraries(${name} PRIVATE zugblick_options zugblick_test_support ${arg_LINK}
                        Qt5::Test Qt5::Widgets Qt5::Network)
  target_precompile_headers(${name} REUSE_FROM zugblick_pch_test)
  if("thread" IN_LIST arg_LABELS)
    add_dependencies(thread_tests ${name})
  endif()
  add_test(NAME ${name} COMMAND ${name} ${arg_ARGS})
  set(data_home "${CMAKE_BINARY_DIR}/test-data/${name}")
  set_tests_properties(${name} PROPERTIES
    TIMEOUT ${arg_TIMEOUT}
    LABELS "${arg_LABELS}"
    ENVIRONMENT "QT_QPA_PLATFORM=offscreen;LC_ALL=de_DE.UTF-8;LOCPATH=${ZUGBLICK_LOCALES};XDG_DATA_HOME=${data_home}/data;XDG_CONFIG_HOME=${data_home}/config;XDG_CACHE_HOME=${data_home}/cache;XDG_RUNTIME_DIR=${data_home}/run;ASAN_OPTIONS=detect_leaks=1:strict_string_checks=1;LSAN_OPTIONS=suppressions=${CMAKE_SOURCE_DIR}/tests/support/lsan.supp:print_suppressions=0;UBSAN_OPTIONS=print_stacktrace=1;TSAN_OPTIONS=suppressions=${CMAKE_SOURCE_DIR}/tests/support/tsan.supp:halt_on_error=1")
  file(MAKE_DIRECTORY "${data_home}/run")
  file(CHMOD "${data_home}/run" PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE)
endfunction()
