# Builds client.cc as PROGRAM with COMPILER in STANDARD, with and without type
# information and exceptions, and runs it.

set(ENV{PKG_CONFIG_PATH} "${PREFIX}/lib/pkgconfig")
set(ENV{LD_LIBRARY_PATH} "${PREFIX}/lib")
execute_process(
  COMMAND "${PKG_CONFIG}" --cflags --libs vantiro-protos
  OUTPUT_VARIABLE flags OUTPUT_STRIP_TRAILING_WHITESPACE
  COMMAND_ERROR_IS_FATAL ANY)
separate_arguments(flags UNIX_COMMAND "${flags}")

foreach(without IN ITEMS "" "-fno-rtti;-fno-exceptions")
  execute_process(
    COMMAND "${COMPILER}" -std=${STANDARD} ${without}
      -Wall -Wextra -Wpedantic -Wshadow -Werror
      "${CMAKE_CURRENT_LIST_DIR}/client.cc" -o "${PROGRAM}" ${flags}
    COMMAND_ERROR_IS_FATAL ANY)
  execute_process(COMMAND "${PROGRAM}" COMMAND_ERROR_IS_FATAL ANY)
endforeach()
