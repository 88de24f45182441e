# Libraries that compress or decompress pieces faster than zlib, which does it without them.
option(KYR_ENGINES "Use ISA-L and libdeflate where they are installed" ON)

# Header and library of each. Debian has them in libisal-dev (64-bit PCs only) and libdeflate-dev.
set(KYR_ENGINE_isal isa-l.h isal)
set(KYR_ENGINE_libdeflate libdeflate.h deflate)

# kyr_engine(name variable): the file for an engine, engines/NAME_pieces.cpp where its library is
# installed, which is then linked, and engines/no_NAME_pieces.cpp otherwise.
function(kyr_engine name variable)
  list(GET KYR_ENGINE_${name} 0 header)
  list(GET KYR_ENGINE_${name} 1 library)
  if(KYR_ENGINES)
    find_path(KYR_${name}_INCLUDE "${header}")
    find_library(KYR_${name}_LIBRARY "${library}")
    mark_as_advanced(KYR_${name}_INCLUDE KYR_${name}_LIBRARY)
  endif()
  if(KYR_ENGINES AND KYR_${name}_INCLUDE AND KYR_${name}_LIBRARY)
    set(${variable} "engines/${name}_pieces.cpp" PARENT_SCOPE)
    target_include_directories(Kyr SYSTEM PRIVATE "${KYR_${name}_INCLUDE}")
    target_link_libraries(Kyr PRIVATE "${KYR_${name}_LIBRARY}")
  else()
    message(STATUS "Pieces are compressed without ${name}, which is not installed")
    set(${variable} "engines/no_${name}_pieces.cpp" PARENT_SCOPE)
  endif()
endfunction()
