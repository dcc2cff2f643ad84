# Compiles every_operation.cc with COMPILER in STANDARD, with and without type information
# and exceptions. Once, in C++17, it is also linked as PROGRAM, and run.

set(ENV{PKG_CONFIG_PATH} "${PREFIX}/lib/pkgconfig:${RUNTIME}/pkgconfig")
set(ENV{LD_LIBRARY_PATH} "${PREFIX}/lib:${RUNTIME}")
execute_process(
  COMMAND "${PKG_CONFIG}" --cflags --libs vantiro-protos
  OUTPUT_VARIABLE flags OUTPUT_STRIP_TRAILING_WHITESPACE
  COMMAND_ERROR_IS_FATAL ANY)
separate_arguments(flags UNIX_COMMAND "${flags}")
# Warnings of the runtime's own headers are not ours.
list(TRANSFORM flags REPLACE "^-I" "-isystem")
list(TRANSFORM flags REPLACE "^-isystem${PREFIX}" "-I${PREFIX}")

set(make -fsyntax-only)
if(STANDARD STREQUAL "c++17")
  set(make -o "${PROGRAM}" ${flags})
else()
  list(FILTER flags INCLUDE REGEX "^-I|^-isystem|^-D")
  list(APPEND make ${flags})
endif()
foreach(without IN ITEMS "" "-fno-rtti;-fno-exceptions")
  execute_process(
    COMMAND "${COMPILER}" -std=${STANDARD} ${without}
      -Wall -Wextra -Wpedantic -Wshadow -Werror
      "${CMAKE_CURRENT_LIST_DIR}/every_operation.cc" ${make}
    COMMAND_ERROR_IS_FATAL ANY)
  if(STANDARD STREQUAL "c++17")
    execute_process(COMMAND "${PROGRAM}" COMMAND_ERROR_IS_FATAL ANY)
  endif()
endforeach()
