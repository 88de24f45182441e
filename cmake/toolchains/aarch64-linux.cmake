# Builds for Linux on 64-bit ARM processors with Debian's cross compiler.
#
#   cmake -D CMAKE_TOOLCHAIN_FILE=cmake/toolchains/aarch64-linux.cmake ...
#
# Qt and what else the library needs come from tools/arm64/prepare_root.sh, out of KYR_CACHE or the
# user's cache folder; another root can be named with -D KYR_ARM64_ROOT=... or in the environment.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR aarch64)

set(_kyr_triplet aarch64-linux-gnu)
set(CMAKE_CXX_COMPILER ${_kyr_triplet}-g++)
set(CMAKE_C_COMPILER ${_kyr_triplet}-gcc)
set(CMAKE_LIBRARY_ARCHITECTURE ${_kyr_triplet})

if(NOT KYR_ARM64_ROOT)
  if(DEFINED ENV{KYR_ARM64_ROOT})
    set(KYR_ARM64_ROOT "$ENV{KYR_ARM64_ROOT}")
  elseif(DEFINED ENV{KYR_CACHE})
    set(KYR_ARM64_ROOT "$ENV{KYR_CACHE}/arm64")
  elseif(DEFINED ENV{XDG_CACHE_HOME})
    set(KYR_ARM64_ROOT "$ENV{XDG_CACHE_HOME}/kyr/arm64")
  else()
    set(KYR_ARM64_ROOT "$ENV{HOME}/.cache/kyr/arm64")
  endif()
endif()
set(KYR_ARM64_ROOT "${KYR_ARM64_ROOT}" CACHE PATH "Packages of arm64, unpacked")
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES KYR_ARM64_ROOT)

list(APPEND CMAKE_FIND_ROOT_PATH "${KYR_ARM64_ROOT}")
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# Headers that each processor has its own of, and libraries of libraries. The system's own header
# folders stay those of the compiler.
set(CMAKE_CXX_FLAGS_INIT "-isystem ${KYR_ARM64_ROOT}/usr/include/${_kyr_triplet}")
set(CMAKE_C_FLAGS_INIT "${CMAKE_CXX_FLAGS_INIT}")
foreach(_kyr_kind IN ITEMS EXE SHARED MODULE)
  set(CMAKE_${_kyr_kind}_LINKER_FLAGS_INIT
    "-Wl,-rpath-link,${KYR_ARM64_ROOT}/usr/lib/${_kyr_triplet}:${KYR_ARM64_ROOT}/lib/${_kyr_triplet}")
endforeach()
