# The processor, in the names of files that are about one: x86, x64, arm64, or as the system calls it.
string(TOLOWER "${CMAKE_SYSTEM_PROCESSOR}" KYR_MACHINE)
if(KYR_MACHINE MATCHES "^(x86_64|amd64|i[3-6]86)$")
  set(KYR_MACHINE x64)
  if(CMAKE_SIZEOF_VOID_P EQUAL 4)  # which 64-bit systems run as well
    set(KYR_MACHINE x86)
  endif()
elseif(KYR_MACHINE STREQUAL "aarch64")
  set(KYR_MACHINE arm64)
endif()

# kyr_room(NAME room [SOURCES file...] [POSIX file...] [WINDOWS file...] [MACHINES file...]
#          [ENGINES name...] [NEEDS room...] [OFFERS header...])
#
# Adds a room's sources and its public headers to the library. POSIX and WINDOWS name whole
# files, of which one set is compiled, and MACHINES such that are about a processor of a system as
# well, as thing_x64_win.cpp. ENGINES names libraries that a build may lack, as KyrEngines
# knows them: of two files for each, one is compiled. NEEDS lists the rooms whose headers this one may
# include besides those that they need themselves; tools/check_rooms.py holds the includes against
# it. Every header of the folder is public and installed, unless its name ends in _p.h;
# OFFERS lists those of the others that other rooms of the library may include all the same.
function(kyr_room)
  cmake_parse_arguments(ROOM "" "NAME" "SOURCES;POSIX;WINDOWS;MACHINES;ENGINES;NEEDS;OFFERS" ${ARGN})
  if(ROOM_UNPARSED_ARGUMENTS)
    message(FATAL_ERROR "kyr_room(${ROOM_NAME}): unknown words ${ROOM_UNPARSED_ARGUMENTS}")
  endif()
  set(files ${ROOM_SOURCES})
  if(WIN32)
    set(system win)
    list(APPEND files ${ROOM_WINDOWS})
  else()
    set(system posix)
    list(APPEND files ${ROOM_POSIX})
  endif()
  if(ROOM_MACHINES)
    list(FILTER ROOM_MACHINES INCLUDE REGEX "_${KYR_MACHINE}_${system}\\.cpp$")
    if(NOT ROOM_MACHINES)
      message(FATAL_ERROR "The room ${ROOM_NAME} has no files for the processor ${KYR_MACHINE}")
    endif()
    list(APPEND files ${ROOM_MACHINES})
  endif()
  foreach(engine IN LISTS ROOM_ENGINES)
    kyr_engine("${engine}" file)
    list(APPEND files "${file}")
  endforeach()
  list(TRANSFORM files PREPEND "${CMAKE_CURRENT_SOURCE_DIR}/")
  file(GLOB headers CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/*.h")
  list(FILTER headers EXCLUDE REGEX "_p\\.h$")
  target_sources(Kyr PRIVATE ${files}
    PUBLIC FILE_SET HEADERS BASE_DIRS "${PROJECT_SOURCE_DIR}/src/base" FILES ${headers})
endfunction()

# kyr_moved_header(old new)
#
# Lets applications include a public header, "room/Header.h", by the path that it had before: a header
# is made, and installed, that only includes the new one. The library itself has no use of old paths.
function(kyr_moved_header old new)
  if(EXISTS "${CMAKE_CURRENT_SOURCE_DIR}/${old}" OR NOT EXISTS "${CMAKE_CURRENT_SOURCE_DIR}/${new}")
    message(FATAL_ERROR "kyr_moved_header: ${old} is still there, or there is no ${new}")
  endif()
  set(folder "${PROJECT_BINARY_DIR}/moved_headers")
  file(CONFIGURE OUTPUT "${folder}/kyr/${old}" @ONLY CONTENT
    "/// \\file\n/// The path that an earlier version gave to a header.\n#pragma once\n\n#include <kyr/${new}>\n")
  target_sources(Kyr PUBLIC FILE_SET HEADERS BASE_DIRS "${folder}" FILES "${folder}/kyr/${old}")
endfunction()
