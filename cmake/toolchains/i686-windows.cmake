# Builds for 32-bit Windows with Debian's mingw-w64 compiler and its threads of POSIX.
#
#   cmake -D CMAKE_TOOLCHAIN_FILE=cmake/toolchains/i686-windows.cmake ...
set(CMAKE_SYSTEM_PROCESSOR i686)
# SSE2: doubles of 64 bits, as everywhere else, where the old unit computes with 80.
set(_kyr_flags "-msse2 -mfpmath=sse -mstackrealign")
include("${CMAKE_CURRENT_LIST_DIR}/windows.cmake")
