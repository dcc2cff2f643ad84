# Builds PROJECT in SCRATCH, and reads what its library needs.
file(REMOVE_RECURSE "${SCRATCH}")
execute_process(
  COMMAND ${CMAKE_COMMAND} -S "${PROJECT}" -B "${SCRATCH}" -G "${GENERATOR}"
    "-DCMAKE_CXX_COMPILER=${COMPILER}"
  OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND ${CMAKE_COMMAND} --build "${SCRATCH}"
  OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
set(ENV{LC_ALL} C)
execute_process(COMMAND "${READELF}" -d -W "${SCRATCH}/libvantiro_protos.so"
  OUTPUT_VARIABLE dynamic COMMAND_ERROR_IS_FATAL ANY)

# Brackets would keep a list's elements together.
string(REGEX REPLACE "[][]" "" dynamic "${dynamic}")
string(REGEX MATCHALL "Shared library: [^\n]*" needed "${dynamic}")
list(TRANSFORM needed REPLACE "Shared library: " "")
set(wanted libprotobuf-cpp-lite-3.9.1.so libc++.so libc.so libm.so libdl.so)
if(NOT needed STREQUAL wanted)
  message(FATAL_ERROR "needed: ${needed}\nwanted: ${wanted}")
endif()
