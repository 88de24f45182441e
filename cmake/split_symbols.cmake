# Splits programs and libraries: what is shipped loses its debug information and its names, and keeps
# the build id under which the debug information is found again, in
# SYMBOLS/.build-id/xx/rest.debug. Both keep the time stamp of PE files.
#
#   cmake -D built=FILE -D shipped=FILE -D symbols=FOLDER -D objcopy=TOOL -D strip=TOOL
#         -D objdump=TOOL -P split_symbols.cmake
#
# built is the file that the linker wrote, shipped a copy of it, which is stripped. A third file lies
# in the folder beside the debug information, .build-id/xx/rest: the stripped file itself, which
# debuggers want for stacks of dumps. modules.txt in the same folder lists "BUILD-ID NAME".
cmake_minimum_required(VERSION 3.25)

# kyr_run(COMMAND...): its output becomes "said"; ends if it fails.
macro(kyr_run)
  execute_process(COMMAND ${ARGN} OUTPUT_VARIABLE said COMMAND_ERROR_IS_FATAL ANY)
endmacro()

# The bytes of a GUID in the order in which people write it, as objdump prints it.
function(kyr_build_id file variable)
  kyr_run("${objdump}" -p "${file}")
  if(said MATCHES "format RSDS signature ([0-9a-f]+) ")
    set(${variable} "${CMAKE_MATCH_1}" PARENT_SCOPE)
    return()
  endif()
  kyr_run("${objdump}" -s -j .note.gnu.build-id "${file}")
  # Words of the section's bytes: the lengths of name and content, the kind, "GNU", and the id.
  string(REGEX MATCHALL "\n +[0-9a-f]+ [0-9a-f ]+  " lines "${said}")
  string(REGEX REPLACE "\n +[0-9a-f]+ " "" bytes "${lines}")
  string(REGEX REPLACE "[; ]" "" bytes "${bytes}")
  if(NOT bytes MATCHES "^0400000014000000" OR NOT bytes MATCHES "^................................(.+)$")
    message(FATAL_ERROR "${file} has no build id; was it linked with -Wl,--build-id?")
  endif()
  set(${variable} "${CMAKE_MATCH_1}" PARENT_SCOPE)
endfunction()

kyr_build_id("${built}" id)
string(SUBSTRING "${id}" 0 2 head)
string(SUBSTRING "${id}" 2 -1 rest)
set(folder "${symbols}/.build-id/${head}")
set(debug "${folder}/${rest}.debug")
file(MAKE_DIRECTORY "${folder}")
# Other programs may read the folder: a file appears in it when it is whole.
kyr_run("${objcopy}" -p --only-keep-debug "${built}" "${debug}.new")
file(RENAME "${debug}.new" "${debug}")
kyr_run("${strip}" -p --strip-all "${shipped}")
# The link holds the name and the checksum; a debugger looks beside the program for it.
kyr_run("${objcopy}" -p --remove-section=.gnu_debuglink "--add-gnu-debuglink=${debug}" "${shipped}")
file(COPY_FILE "${shipped}" "${folder}/${rest}")

cmake_path(GET shipped FILENAME name)
set(line "${id} ${name}\n")
set(known "")
if(EXISTS "${symbols}/modules.txt")
  file(READ "${symbols}/modules.txt" known)
endif()
string(FIND "\n${known}" "\n${line}" found)
if(found EQUAL -1)
  file(APPEND "${symbols}/modules.txt" "${line}")
endif()
