# Each line of LIST has to name a test of BUILD: one that is gone proves nothing.
execute_process(COMMAND ${CTEST} -N WORKING_DIRECTORY "${BUILD}"
  OUTPUT_VARIABLE tests COMMAND_ERROR_IS_FATAL ANY)
file(STRINGS "${LIST}" names REGEX "^[^#]")
foreach(name IN LISTS names)
  string(FIND "${tests}" ": ${name}\n" at)
  if(at EQUAL -1)
    message(SEND_ERROR "no such test: ${name}")
  endif()
endforeach()
