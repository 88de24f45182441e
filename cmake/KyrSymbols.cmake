# What is installed is stripped; its debug information goes into a folder of its own, from which
# "kyr symbolize", gdb and others read it by build id.
#
# KYR_SYMBOLS_DIR lies below the prefix unless it is an absolute path.
if(KYR_SANITIZE OR CMAKE_BUILD_TYPE STREQUAL "Debug")
  set(split_by_default OFF)
else()
  set(split_by_default ON)
endif()
option(KYR_SPLIT_SYMBOLS "Install stripped files, with their debug information apart"
  ${split_by_default})
set(KYR_SYMBOLS_DIR "lib/debug" CACHE STRING "Where debug information is installed")
set(KYR_SPLIT_SCRIPT "${CMAKE_CURRENT_LIST_DIR}/split_symbols.cmake")

# kyr_split_symbols(target destination [OPTION OF install()...]): splits a file that an install()
# with these options before this line installs into a folder below the prefix.
function(kyr_split_symbols target destination)
  if(NOT KYR_SPLIT_SYMBOLS)
    return()
  endif()
  install(CODE "
    set(kyr_prefix \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}\")
    set(kyr_symbols \"${KYR_SYMBOLS_DIR}\")
    if(IS_ABSOLUTE \"\${kyr_symbols}\")
      set(kyr_symbols \"\$ENV{DESTDIR}\${kyr_symbols}\")
    else()
      set(kyr_symbols \"\${kyr_prefix}/\${kyr_symbols}\")
    endif()
    execute_process(COMMAND \"${CMAKE_COMMAND}\"
      -D \"built=$<TARGET_FILE:${target}>\"
      -D \"shipped=\${kyr_prefix}/${destination}/$<TARGET_FILE_NAME:${target}>\"
      -D \"symbols=\${kyr_symbols}\"
      -D \"objcopy=${CMAKE_OBJCOPY}\" -D \"strip=${CMAKE_STRIP}\" -D \"objdump=${CMAKE_OBJDUMP}\"
      -P \"${KYR_SPLIT_SCRIPT}\"
      COMMAND_ERROR_IS_FATAL ANY)" ${ARGN})
endfunction()

# kyr_install_example(target): installs it beside the tool kyr, but only with the component examples.
function(kyr_install_example target)
  set(on_demand COMPONENT examples EXCLUDE_FROM_ALL)
  file(RELATIVE_PATH bin_to_lib "/${CMAKE_INSTALL_BINDIR}" "/${CMAKE_INSTALL_LIBDIR}")
  set_target_properties(${target} PROPERTIES INSTALL_RPATH "$ORIGIN/${bin_to_lib}")
  install(TARGETS ${target} RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}" ${on_demand})
  kyr_split_symbols(${target} "${CMAKE_INSTALL_BINDIR}" ${on_demand})
endfunction()
