# 64-bit Windows by MinGW-w64 on Debian. Qt and QuaZip are below ZUGBLICK_WINDOWS_CACHE, where
# build-qt.sh puts them; Qt's own tools in there run on this side.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)

set(ZUGBLICK_WINDOWS_CACHE "" CACHE PATH "Folder with Qt and QuaZip for Windows")
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES ZUGBLICK_WINDOWS_CACHE)
set(CMAKE_FIND_ROOT_PATH
    "${ZUGBLICK_WINDOWS_CACHE}/qt" "${ZUGBLICK_WINDOWS_CACHE}/quazip" /usr/x86_64-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# Packages of this side are for Linux.
set(ENV{PKG_CONFIG_LIBDIR} "${ZUGBLICK_WINDOWS_CACHE}/httplib")
set(ENV{PKG_CONFIG_PATH} "")
