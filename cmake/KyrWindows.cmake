# What programs for Windows need beside libKyr.dll: the DLLs of Qt, zlib and the compiler. They
# are put beside the programs, so that these start wherever the folder lies, and are installed
# with the notices that their licences ask for.
find_file(KYR_ZLIB_DLL zlib1.dll PATHS /bin /lib REQUIRED)
find_file(KYR_LICENCE_GPL3 GPL-3 PATHS /usr/share/common-licenses NO_CMAKE_FIND_ROOT_PATH REQUIRED)
set(KYR_COPYRIGHTS /usr/share/doc CACHE PATH "Where Debian's packages keep their notices")
mark_as_advanced(KYR_ZLIB_DLL KYR_LICENCE_GPL3 KYR_COPYRIGHTS)

# kyr_compiler_dll(variable name): where the compiler keeps a DLL of its runtime.
function(kyr_compiler_dll variable name)
  execute_process(COMMAND "${CMAKE_CXX_COMPILER}" "-print-file-name=${name}"
    OUTPUT_VARIABLE path OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  if(NOT IS_ABSOLUTE "${path}")
    message(FATAL_ERROR "The compiler knows no ${name}")
  endif()
  file(REAL_PATH "${path}" path)
  set(${variable} "${path}" PARENT_SCOPE)
endfunction()

if(CMAKE_SIZEOF_VOID_P EQUAL 8)
  set(KYR_WINDOWS_BITS 64)
  set(machine x86-64)  # in the names of packages
  set(KYR_GCC_DLL_NAME libgcc_s_seh-1.dll)
else()
  set(KYR_WINDOWS_BITS 32)
  set(machine i686)
  set(KYR_GCC_DLL_NAME libgcc_s_dw2-1.dll)
endif()
kyr_compiler_dll(KYR_GCC_DLL ${KYR_GCC_DLL_NAME})
kyr_compiler_dll(KYR_STDCXX_DLL libstdc++-6.dll)
kyr_compiler_dll(KYR_THREADS_DLL libwinpthread-1.dll)
# The compiler's DLLs are five times as large with the debug information that Debian leaves in them.
set(KYR_STRIPPED "${PROJECT_BINARY_DIR}/runtime")
set(KYR_RUNTIME_DLLS $<TARGET_FILE:Qt5::Core> "${KYR_ZLIB_DLL}")
foreach(dll IN ITEMS "${KYR_GCC_DLL}" "${KYR_STDCXX_DLL}" "${KYR_THREADS_DLL}")
  cmake_path(GET dll FILENAME name)
  add_custom_command(OUTPUT "${KYR_STRIPPED}/${name}"
    COMMAND "${CMAKE_COMMAND}" -E make_directory "${KYR_STRIPPED}"
    COMMAND "${CMAKE_STRIP}" --strip-debug -o "${KYR_STRIPPED}/${name}" "${dll}"
    DEPENDS "${dll}" VERBATIM)
  list(APPEND KYR_RUNTIME_DLLS "${KYR_STRIPPED}/${name}")
endforeach()

add_custom_target(kyr_runtime_dlls ALL
  COMMAND "${CMAKE_COMMAND}" -E make_directory "${CMAKE_RUNTIME_OUTPUT_DIRECTORY}"
  COMMAND "${CMAKE_COMMAND}" -E copy_if_different
          ${KYR_RUNTIME_DLLS} "${CMAKE_RUNTIME_OUTPUT_DIRECTORY}"
  DEPENDS ${KYR_RUNTIME_DLLS}
  COMMENT "Putting the runtime's DLLs beside the programs" VERBATIM)
add_dependencies(Kyr kyr_runtime_dlls)
install(FILES ${KYR_RUNTIME_DLLS} DESTINATION "${CMAKE_INSTALL_BINDIR}")

set(KYR_NOTICES_DIR "${CMAKE_INSTALL_DATADIR}/licences")
configure_file("${CMAKE_CURRENT_LIST_DIR}/windows-notices.txt.in"
  "${PROJECT_BINARY_DIR}/NOTICES.txt" @ONLY NEWLINE_STYLE CRLF)
install(FILES "${PROJECT_BINARY_DIR}/NOTICES.txt" DESTINATION .)
install(DIRECTORY "${KYR_WINDOWS_QT}/licences/" DESTINATION "${KYR_NOTICES_DIR}/qt")
install(FILES "${KYR_LICENCE_GPL3}" DESTINATION "${KYR_NOTICES_DIR}/gcc" RENAME GPL-3.txt)
# kyr_install_notice(package folder): the notices of one of Debian's packages.
function(kyr_install_notice package folder)
  install(FILES "${KYR_COPYRIGHTS}/${package}/copyright"
    DESTINATION "${KYR_NOTICES_DIR}/${folder}" RENAME copyright.txt)
endfunction()
kyr_install_notice(gcc-mingw-w64-${machine}-posix-runtime gcc)
kyr_install_notice(mingw-w64-${machine}-dev mingw-w64)
kyr_install_notice(libz-mingw-w64 zlib)
