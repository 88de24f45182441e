# How every target of this project is compiled.
set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/lib")
set(CMAKE_ARCHIVE_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/lib")
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/bin")

add_library(kyr_compile INTERFACE)
# gcc's -Wconversion leaves the sign alone; clang's is told to, so that both mean the same.
target_compile_options(kyr_compile INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror
  $<$<CXX_COMPILER_ID:Clang>:-Wno-sign-conversion -Wthread-safety>)
target_compile_definitions(kyr_compile INTERFACE
  QT_NO_KEYWORDS QT_NO_CAST_TO_ASCII QT_DISABLE_DEPRECATED_BEFORE=0x050000)
# What is shipped does not tell where it was built: in every folder the same bytes come out. A compiler
# cache turns paths into relative ones, which are called the same. The last name that fits counts.
if(NOT KYR_SANITIZE AND NOT CMAKE_BUILD_TYPE STREQUAL "Debug")
  cmake_path(RELATIVE_PATH PROJECT_SOURCE_DIR BASE_DIRECTORY "${PROJECT_BINARY_DIR}"
    OUTPUT_VARIABLE kyr_way_to_sources)
  target_compile_options(kyr_compile INTERFACE
    "-ffile-prefix-map=${PROJECT_SOURCE_DIR}=."
    "-ffile-prefix-map=${kyr_way_to_sources}=."
    "-ffile-prefix-map=${PROJECT_BINARY_DIR}=./build"
    "-ffile-prefix-map=${PROJECT_BINARY_DIR}/=")
endif()
# Debug information that was split off, dumps and crash reports name the build by it. The 32-bit
# compiler leaves frame pointers out, without which nobody finds the callers in a stripped program.
target_link_options(kyr_compile INTERFACE -Wl,--build-id)
if(WIN32)
  find_package(Python3 REQUIRED COMPONENTS Interpreter)
  set(CMAKE_CXX_LINKER_LAUNCHER
    "${Python3_EXECUTABLE};-B;${PROJECT_SOURCE_DIR}/tools/windows/link_named.py")
endif()
target_compile_options(kyr_compile INTERFACE $<$<PLATFORM_ID:Windows>:-fno-omit-frame-pointer>)
# Of the time of linking link_named.py makes one that only what is linked decides about.
target_link_options(kyr_compile INTERFACE $<$<PLATFORM_ID:Windows>:-Wl,--no-insert-timestamp>)
if(KYR_SANITIZE)
  target_compile_options(kyr_compile INTERFACE
    -fsanitize=${KYR_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(kyr_compile INTERFACE -fsanitize=${KYR_SANITIZE})
  # Every program must have it: without it, ThreadSanitizer finds the threads of Qt at fault.
  target_sources(kyr_compile INTERFACE
    $<$<STREQUAL:$<TARGET_PROPERTY:TYPE>,EXECUTABLE>:${PROJECT_SOURCE_DIR}/tests/support/sanitizers.cpp>)
endif()
if(KYR_FUZZ)
  # Counts which branches an input reaches; what makes up the inputs is linked to the harnesses alone.
  target_compile_options(kyr_compile INTERFACE -fsanitize=fuzzer-no-link)
endif()
