# Run by CTest with: source, build, version, libdir, generator, compiler, tool, system; and for a
# foreign system: toolchain, emulator, qt.
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

# refuses(text COMMAND...): runs it; fails the test if it succeeds or does not explain why not.
function(refuses text)
  execute_process(COMMAND ${ARGN} OUTPUT_VARIABLE said ERROR_VARIABLE said RESULT_VARIABLE code)
  string(REGEX REPLACE "[ \n]+" " " said "${said}")
  if(code EQUAL 0 OR NOT said MATCHES "${text}")
    message(FATAL_ERROR "${ARGN}\nended with ${code} instead of \"${text}\" and said:\n${said}")
  endif()
endfunction()

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
  if(tool)
    list(APPEND files share/man/man1/kyr.1 share/bash-completion/completions/kyr
      share/zsh/site-functions/_kyr)
  endif()
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
file(GLOB described "${root}/${libdir}/cmake/Kyr/*.cmake" "${root}/${libdir}/pkgconfig/*.pc")
foreach(file IN LISTS described)
  file(READ "${file}" text)
  foreach(place IN ITEMS "${build}" "${planned}")
    string(FIND "${text}" "${place}" found)
    if(NOT found EQUAL -1)
      list(APPEND places "${file}")
    endif()
  endforeach()
endforeach()
list(LENGTH described describing)
if(describing LESS 4)
  message(FATAL_ERROR "the package does not describe itself: ${described}")
endif()
if(places)
  message(FATAL_ERROR "not to be moved, names the place of its birth: ${places}")
endif()

# Whatever the documents link to is there.
set(followed 0)
file(GLOB_RECURSE documents "${root}/share/*.md")
foreach(document IN LISTS documents)
  cmake_path(GET document PARENT_PATH folder)
  file(READ "${document}" text)
  string(REGEX REPLACE "\n```[^`]+\n```" "" text "${text}")  # in code, arguments may follow brackets
  string(REPLACE "](" "\n@" text "${text}")  # a single bracket would confuse lists
  string(REGEX MATCHALL "\n@[^#)\n]+" links "${text}")
  foreach(link IN LISTS links)
    string(SUBSTRING "${link}" 2 -1 link)
    if(NOT link MATCHES "^https?://" AND NOT EXISTS "${folder}/${link}")
      list(APPEND dead "${document}: ${link}")
    endif()
    math(EXPR followed "${followed} + 1")
  endforeach()
endforeach()
if(dead OR NOT followed GREATER 100)
  list(JOIN dead "\n" dead)
  message(FATAL_ERROR "of ${followed} links in documents these are dead:\n${dead}")
endif()

# A CMake project. Who builds for a foreign system finds packages below that system's root only.
if(toolchain)
  set(places -D "CMAKE_TOOLCHAIN_FILE=${toolchain}" -D "KYR_WINDOWS_QT=${qt}"
    -D "CMAKE_FIND_ROOT_PATH=${root}")
else()
  set(places -D "CMAKE_PREFIX_PATH=${root}")
endif()
set(consume "${CMAKE_COMMAND}" -S "${CMAKE_CURRENT_LIST_DIR}/consumer" -B "${area}/consumer"
  -G "${generator}" -D "CMAKE_CXX_COMPILER=${compiler}" ${places})
refuses("libKyr has no component \"pack\": it is one library, .* target Kyr::Kyr"
  ${consume} -D "KYR_WANTED=6.2\;COMPONENTS\;Kyr\;pack")
refuses("version \"${version}\\.7\"" ${consume} -D "KYR_WANTED=${version}.7")
foreach(wanted IN ITEMS "${version}.6" "${version}.6\;EXACT" "${version}\;EXACT" "6...${version}"
    "6.2...${version}.6" "6.2\;COMPONENTS\;Kyr")
  say(${consume} -D "KYR_WANTED=${wanted}")
endforeach()
say("${CMAKE_COMMAND}" --build "${area}/consumer")
run_program("${area}/consumer/consumer${exe}")
expect_said("${version}-6 caught")

# A static library is refused before anything is looked for.
refuses("libKyr is a shared library only" "${CMAKE_COMMAND}" -S "${source}" -B "${area}/static"
  -G "${generator}" -D "CMAKE_CXX_COMPILER=${compiler}" ${places} -D BUILD_SHARED_LIBS=OFF)

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
