# Run by CTest with: build, version, libdir, generator, compiler, tool.
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

file(REMOVE_RECURSE "${area}")
say("${CMAKE_COMMAND}" --install "${build}" --prefix "${planned}")
file(RENAME "${planned}" "${root}")

# What is there, and what must not be.
foreach(file IN ITEMS include/kyr/core/KyrException.h ${libdir}/libKyr.so ${libdir}/libKyr.so.6)
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

# A CMake project.
say("${CMAKE_COMMAND}" -S "${CMAKE_CURRENT_LIST_DIR}/consumer" -B "${area}/consumer"
  -G "${generator}" -D "CMAKE_CXX_COMPILER=${compiler}" -D "CMAKE_PREFIX_PATH=${root}")
say("${CMAKE_COMMAND}" --build "${area}/consumer")
say("${area}/consumer/consumer")
expect_said("${version}-6 caught")

# One call of the compiler with what pkg-config says.
find_program(pkgconfig NAMES pkg-config pkgconf REQUIRED)
set(ENV{PKG_CONFIG_PATH} "${root}/${libdir}/pkgconfig")
say("${pkgconfig}" --modversion kyr)
expect_said("^${version}\n")
say("${pkgconfig}" --cflags --libs kyr)
separate_arguments(flags UNIX_COMMAND "${said}")
say("${compiler}" "${CMAKE_CURRENT_LIST_DIR}/consumer/consumer.cpp" -o "${area}/by pkg-config"
  ${flags} "-Wl,-rpath,${root}/${libdir}")
say("${area}/by pkg-config")
expect_said("${version}-6 caught")

# The tool finds its library wherever both were moved to.
if(tool)
  say("${root}/bin/${tool}" convert 25.4 mm in)
  expect_said("^25\\.4 mm = 1 in\n")
endif()
