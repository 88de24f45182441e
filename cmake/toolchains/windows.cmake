# What the toolchain files for Windows share: Debian's mingw-w64 compiler with its threads of POSIX.
# CMAKE_SYSTEM_PROCESSOR says which, and _kyr_flags what it needs besides.
#
# Qt comes from tools/windows/build_qt.sh, out of KYR_CACHE or the user's cache folder; another
# one can be named with -D KYR_WINDOWS_QT=... or in the environment.
set(CMAKE_SYSTEM_NAME Windows)

set(_kyr_triplet ${CMAKE_SYSTEM_PROCESSOR}-w64-mingw32)
set(CMAKE_CXX_COMPILER ${_kyr_triplet}-g++-posix)
set(CMAKE_C_COMPILER ${_kyr_triplet}-gcc-posix)
set(CMAKE_RC_COMPILER ${_kyr_triplet}-windres)

if(NOT KYR_WINDOWS_QT)
  set(_kyr_qt qt5-windows-${CMAKE_SYSTEM_PROCESSOR})
  if(DEFINED ENV{KYR_WINDOWS_QT})
    set(KYR_WINDOWS_QT "$ENV{KYR_WINDOWS_QT}")
  elseif(DEFINED ENV{KYR_CACHE})
    set(KYR_WINDOWS_QT "$ENV{KYR_CACHE}/${_kyr_qt}")
  elseif(DEFINED ENV{XDG_CACHE_HOME})
    set(KYR_WINDOWS_QT "$ENV{XDG_CACHE_HOME}/kyr/${_kyr_qt}")
  else()
    set(KYR_WINDOWS_QT "$ENV{HOME}/.cache/kyr/${_kyr_qt}")
  endif()
endif()
set(KYR_WINDOWS_QT "${KYR_WINDOWS_QT}" CACHE PATH "Qt for Windows")
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES KYR_WINDOWS_QT)

# Behind what the caller names, as the folder of this library's package.
list(APPEND CMAKE_FIND_ROOT_PATH /usr/${_kyr_triplet} "${KYR_WINDOWS_QT}")
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# DWARF 4: what the debug helper library of the system reads.
set(CMAKE_CXX_FLAGS_INIT "${_kyr_flags}")
set(CMAKE_CXX_FLAGS_DEBUG_INIT "-gdwarf-4")
set(CMAKE_CXX_FLAGS_RELWITHDEBINFO_INIT "-gdwarf-4")
set(CMAKE_C_FLAGS_INIT "${CMAKE_CXX_FLAGS_INIT}")
