# Builds for 64-bit Windows with Debian's mingw-w64 compiler and its threads of POSIX.
#
#   cmake -D CMAKE_TOOLCHAIN_FILE=cmake/toolchains/x86_64-windows.cmake ...
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(_kyr_flags "")
include("${CMAKE_CURRENT_LIST_DIR}/windows.cmake")
