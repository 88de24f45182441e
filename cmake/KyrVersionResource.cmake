# kyr_version_resource(target file description)
#
# Gives a program or DLL for Windows the version that the system shows in its properties and that
# installers compare: 6.2.0-6 counts as 6,2,0,6. FILE is the name that it is shipped under. Other
# systems know no such thing.
function(kyr_version_resource target file description)
  if(NOT WIN32)
    return()
  endif()
  get_target_property(type ${target} TYPE)
  set(KYR_RESOURCE_TYPE VFT_APP)
  if(type STREQUAL "SHARED_LIBRARY")
    set(KYR_RESOURCE_TYPE VFT_DLL)
  endif()
  set(KYR_RESOURCE_DESCRIPTION "${description}")
  set(KYR_RESOURCE_FILE "${file}")
  cmake_path(GET file STEM LAST_ONLY KYR_RESOURCE_STEM)
  set(resource "${CMAKE_CURRENT_BINARY_DIR}/${target}_version.rc")
  configure_file("${PROJECT_SOURCE_DIR}/cmake/version.rc.in" "${resource}" @ONLY)
  target_sources(${target} PRIVATE "${resource}")
endfunction()
