# Runs ON_HOST and ON_TARGET, whose output has to be the same. It is kept in
# FOLDER.
execute_process(COMMAND ${ON_HOST} OUTPUT_FILE "${FOLDER}/on_host.txt"
  COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND ${ON_TARGET} OUTPUT_FILE "${FOLDER}/on_target.txt"
  COMMAND_ERROR_IS_FATAL ANY)
file(SIZE "${FOLDER}/on_host.txt" size)
if(size LESS 100000)
  message(FATAL_ERROR "${ON_HOST} wrote ${size} bytes only")
endif()
execute_process(
  COMMAND diff "${FOLDER}/on_host.txt" "${FOLDER}/on_target.txt"
  COMMAND_ERROR_IS_FATAL ANY)
