# How debuggers show the library's values: a script that gdb loads with the library, and a file for
# those that read natvis.
set(KYR_DEBUGGERS "${PROJECT_SOURCE_DIR}/tools/debuggers")
install(FILES "${KYR_DEBUGGERS}/kyr.natvis" DESTINATION "${CMAKE_INSTALL_DATADIR}/kyr"
  COMPONENT debuggers)
if(WIN32)
  return()
endif()

# gdb looks beside the library first, and reads what lies in a folder that its user calls safe.
file(GENERATE OUTPUT "$<TARGET_FILE:Kyr>-gdb.py" INPUT "${KYR_DEBUGGERS}/libKyr-gdb.py")
# Of a library of the system it looks in a folder of its own, which is safe.
install(CODE "
  set(kyr_place \"${CMAKE_INSTALL_LIBDIR}\")
  if(CMAKE_INSTALL_PREFIX STREQUAL \"/usr\")
    set(kyr_place \"${CMAKE_INSTALL_DATADIR}/gdb/auto-load/usr/${CMAKE_INSTALL_LIBDIR}\")
  endif()
  file(INSTALL DESTINATION \"\${CMAKE_INSTALL_PREFIX}/\${kyr_place}\" TYPE FILE
    RENAME \"$<TARGET_FILE_NAME:Kyr>-gdb.py\" FILES \"${KYR_DEBUGGERS}/libKyr-gdb.py\")"
  COMPONENT debuggers)
