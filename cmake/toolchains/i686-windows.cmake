# Builds for 32-bit Windows with Debian's mingw-w64 compiler and its threads of POSIX.
#
#   cmake -D CMAKE_TOOLCHAIN_FILE=cmake/toolchains/i686-windows.cmake ...
#
# Qt comes from tools/windows/build_qt.sh, out of KYR_CACHE or the user's cache folder; another
# one can be named with -D KYR_WINDOWS_QT=... or in the environment.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR i686)

set(_kyr_triplet i686-w64-mingw32)
set(CMAKE_CXX_COMPILER ${_kyr_triplet}-g++-posix)
set(CMAKE_C_COMPILER ${_kyr_triplet}-gcc-posix)
set(CMAKE_RC_COMPILER ${_kyr_triplet}-windres)

if(NOT KYR_WINDOWS_QT)
  if(DEFINED ENV{KYR_WINDOWS_QT})
    set(KYR_WINDOWS_QT "$ENV{KYR_WINDOWS_QT}")
  elseif(DEFINED ENV{KYR_CACHE})
    set(KYR_WINDOWS_QT "$ENV{KYR_CACHE}/qt5-windows-i686")
  elseif(DEFINED ENV{XDG_CACHE_HOME})
    set(KYR_WINDOWS_QT "$ENV{XDG_CACHE_HOME}/kyr/qt5-windows-i686")
  else()
    set(KYR_WINDOWS_QT "$ENV{HOME}/.cache/kyr/qt5-windows-i686")
  endif()
endif()
set(KYR_WINDOWS_QT "${KYR_WINDOWS_QT}" CACHE PATH "Qt for 32-bit Windows")
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES KYR_WINDOWS_QT)

# Behind what the caller names, as the folder of this library's package.
list(APPEND CMAKE_FIND_ROOT_PATH /usr/${_kyr_triplet} "${KYR_WINDOWS_QT}")
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# SSE2: doubles of 64 bits, as everywhere else, where the old unit computes with 80.
# DWARF 4: what the debug helper library of the system reads.
set(CMAKE_CXX_FLAGS_INIT "-msse2 -mfpmath=sse -mstackrealign")
set(CMAKE_CXX_FLAGS_DEBUG_INIT "-gdwarf-4")
set(CMAKE_CXX_FLAGS_RELWITHDEBINFO_INIT "-gdwarf-4")
set(CMAKE_C_FLAGS_INIT "${CMAKE_CXX_FLAGS_INIT}")
