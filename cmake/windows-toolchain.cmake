# Builds for Windows with MinGW-w64. The libraries come from scripts/windows-libraries, which links
# them to where they are looked for here.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)
# Debian keeps it out of the way of the wrapper that asks for the one of 32 bits.
find_program(WINE wine64 PATHS /usr/lib/wine)
set(CMAKE_CROSSCOMPILING_EMULATOR ${WINE})

set(windows_libraries ${CMAKE_CURRENT_LIST_DIR}/../build/windows-libraries)
cmake_path(NORMAL_PATH windows_libraries)
set(CMAKE_FIND_ROOT_PATH
  /usr/x86_64-w64-mingw32 ${windows_libraries}/small ${windows_libraries}/qt)
set(CMAKE_PREFIX_PATH ${windows_libraries}/small ${windows_libraries}/qt)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(ENV{PKG_CONFIG_LIBDIR} ${windows_libraries}/small/lib/pkgconfig)
set(ENV{PKG_CONFIG_PATH} "")
set(ZLIB_LIBRARY /usr/x86_64-w64-mingw32/lib/libz.a CACHE FILEPATH "")

# The tools that Qt's build runs are those of this machine.
set(QT_HOST_PATH /usr CACHE PATH "")
file(GLOB qt_host_cmake /usr/lib/*/cmake/Qt6HostInfo)
if(qt_host_cmake)
  list(GET qt_host_cmake 0 qt_host_cmake)
  cmake_path(GET qt_host_cmake PARENT_PATH qt_host_cmake)
  set(QT_HOST_PATH_CMAKE_DIR ${qt_host_cmake} CACHE PATH "")
endif()

# One file, with no library beside it.
set(CMAKE_EXE_LINKER_FLAGS_INIT -static)
