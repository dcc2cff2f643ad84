# Builds the example's client in PROJECT, a project of which the library in
# VANTIRO is a part, and runs it.

file(REMOVE_RECURSE "${SCRATCH}")
# The second way finds what the first has built.
foreach(how IN ITEMS add_subdirectory FetchContent)
  execute_process(
    COMMAND ${CMAKE_COMMAND} -S "${PROJECT}" -B "${SCRATCH}" -G "${GENERATOR}"
      "-DCMAKE_CXX_COMPILER=${COMPILER}" "-DProtobuf_ROOT=${RUNTIME}"
      "-DVANTIRO=${VANTIRO}" "-DVANTIRO_CLASSES=${CLASSES}" "-DHOW=${how}"
    OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
  execute_process(COMMAND ${CMAKE_COMMAND} --build "${SCRATCH}" --target client
    COMMAND_ERROR_IS_FATAL ANY)
  execute_process(COMMAND "${SCRATCH}/client"
    OUTPUT_VARIABLE output COMMAND_ERROR_IS_FATAL ANY)
  if(NOT output STREQUAL "OPERATION_PREVIEW, rear_wide\n")
    message(FATAL_ERROR "by ${how} the client prints: ${output}")
  endif()
endforeach()
