# kyr_room(NAME room [SOURCES file...] [POSIX file...] [WINDOWS file...] [NEEDS room...])
#
# Adds a room's sources to the library. POSIX and WINDOWS name whole files, of
# which one set is compiled. NEEDS lists the rooms whose headers this one may
# include besides those that they need themselves; tools/check_rooms.py holds
# the includes against it.
function(kyr_room)
  cmake_parse_arguments(ROOM "" "NAME" "SOURCES;POSIX;WINDOWS;NEEDS" ${ARGN})
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
  target_sources(Kyr PRIVATE ${files})
endfunction()
