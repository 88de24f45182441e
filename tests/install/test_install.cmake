# Run by CTest with: build, version, libdir, generator, compiler, tool, system; and for a foreign
# system: toolchain, emulator, qt.
cmake_minimum_required(VERSION 3.25)
set(area "${build}/Testing/install test")
set(planned "${area}/planned")
set(root "${area}/moved to here")

# say(COMMAND...): runs it and sets "said" to its output; fails the test if the command fails.
macro(say)
  execute_process(COMMAND ${ARGN} OUTPUT_VARIABLE said ERROR_VARIABLE said RESULT_VARIABLE code)
  if(NOT code EQUAL 0)
    message(FATAL_ERROR "${ARGN}\nended with ${code} and said:\n${said}")
  endif()
endmacro()

macro(expect_said text)
  if(NOT said MATCHES "${text}")
    message(FATAL_ERROR "expected \"${text}\", but it said:\n${said}")
  endif()
endmacro()

# run_program(path): Windows looks for DLLs beside the program, wherever it was linked.
function(run_program path)
  if(system STREQUAL Windows)
    file(COPY "${path}" DESTINATION "${root}/bin")
    cmake_path(GET path FILENAME name)
    set(path "${root}/bin/${name}")
  endif()
  say(${emulator} "${path}")
  set(said "${said}" PARENT_SCOPE)
endfunction()

file(REMOVE_RECURSE "${area}")
say("${CMAKE_COMMAND}" --install "${build}" --prefix "${planned}")
file(RENAME "${planned}" "${root}")

# What is there, and what must not be.
set(files include/kyr/core/KyrException.h messages/Kyr_en.qm messages/Kyr_pt.qm)
if(system STREQUAL Windows)
  set(exe .exe)
  list(APPEND files bin/libKyr.dll bin/Qt5Core.dll ${libdir}/libKyr.dll.a)
else()
  list(APPEND files ${libdir}/libKyr.so ${libdir}/libKyr.so.6)
endif()
foreach(file IN LISTS files)
  if(NOT EXISTS "${root}/${file}")
    message(FATAL_ERROR "not installed: ${file}")
  endif()
endforeach()
file(GLOB_RECURSE private "${root}/include/*_p.h" "${root}/include/*.cpp")
if(private)
  message(FATAL_ERROR "installed, though private: ${private}")
endif()
file(STRINGS "${root}/${libdir}/pkgconfig/kyr.pc" places REGEX "${build}|planned")
file(GLOB configs "${root}/${libdir}/cmake/Kyr/*.cmake")
foreach(config IN LISTS configs)
  file(STRINGS "${config}" found REGEX "${build}|planned")
  list(APPEND places ${found})
endforeach()
if(places)
  message(FATAL_ERROR "not to be moved, names the place of its birth: ${places}")
endif()

# A CMake project. Who builds for a foreign system finds packages below that system's root only.
if(toolchain)
  set(places -D "CMAKE_TOOLCHAIN_FILE=${toolchain}" -D "KYR_WINDOWS_QT=${qt}"
    -D "Kyr_DIR=${root}/${libdir}/cmake/Kyr")
else()
  set(places -D "CMAKE_PREFIX_PATH=${root}")
endif()
say("${CMAKE_COMMAND}" -S "${CMAKE_CURRENT_LIST_DIR}/consumer" -B "${area}/consumer"
  -G "${generator}" -D "CMAKE_CXX_COMPILER=${compiler}" ${places})
say("${CMAKE_COMMAND}" --build "${area}/consumer")
run_program("${area}/consumer/consumer${exe}")
expect_said("${version}-6 caught")

# One call of the compiler with what pkg-config says.
find_program(pkgconfig NAMES pkg-config pkgconf REQUIRED)
if(system STREQUAL Windows)
  set(ENV{PKG_CONFIG_LIBDIR} "${qt}/lib/pkgconfig")
else()
  set(rpath "-Wl,-rpath,${root}/${libdir}")
endif()
set(ENV{PKG_CONFIG_PATH} "${root}/${libdir}/pkgconfig")
say("${pkgconfig}" --modversion kyr)
expect_said("^${version}\n")
say("${pkgconfig}" --cflags --libs kyr)
separate_arguments(flags UNIX_COMMAND "${said}")
say("${compiler}" "${CMAKE_CURRENT_LIST_DIR}/consumer/consumer.cpp" -o "${area}/by pkg-config${exe}"
  ${flags} ${rpath})
run_program("${area}/by pkg-config${exe}")
expect_said("${version}-6 caught")

# The tool finds its library wherever both were moved to.
if(tool)
  say(${emulator} "${root}/bin/${tool}${exe}" convert 25.4 mm in)
  expect_said("^25\\.4 mm = 1 in\n")
endif()
