# kyr_room(NAME room [SOURCES file...] [POSIX file...] [WINDOWS file...] [NEEDS room...]
#          [TAKES header...])
#
# Adds a room's sources and its public headers to the library. POSIX and WINDOWS name whole
# files, of which one set is compiled. NEEDS lists the rooms whose headers this one may
# include besides those that they need themselves; tools/check_rooms.py holds the includes
# against it. TAKES lists single public headers of other rooms, as "room/Header.h", whose classes
# this room's functions are called with; they themselves include only what this room may. Every
# header of the folder is public and installed, unless its name ends in _p.h.
function(kyr_room)
  cmake_parse_arguments(ROOM "" "NAME" "SOURCES;POSIX;WINDOWS;NEEDS;TAKES" ${ARGN})
  if(ROOM_UNPARSED_ARGUMENTS)
    message(FATAL_ERROR "kyr_room(${ROOM_NAME}): unknown words ${ROOM_UNPARSED_ARGUMENTS}")
  endif()
  set(files ${ROOM_SOURCES})
  if(WIN32)
    list(APPEND files ${ROOM_WINDOWS})
  else()
    list(APPEND files ${ROOM_POSIX})
  endif()
  list(TRANSFORM files PREPEND "${CMAKE_CURRENT_SOURCE_DIR}/")
  file(GLOB headers CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/*.h")
  list(FILTER headers EXCLUDE REGEX "_p\\.h$")
  target_sources(Kyr PRIVATE ${files}
    PUBLIC FILE_SET HEADERS BASE_DIRS "${PROJECT_SOURCE_DIR}/src/base" FILES ${headers})
endfunction()
