# Installs BUILD below PREFIX, and compares the files there with the list.

file(REMOVE_RECURSE "${PREFIX}")
execute_process(
  COMMAND ${CMAKE_COMMAND} --install "${BUILD}" --prefix "${PREFIX}"
  OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)

file(STRINGS "${CMAKE_CURRENT_LIST_DIR}/installed_files.txt" wanted)
if(CLASSES STREQUAL "protoc")
  # The headers of lib/internal belong to the plug-in's classes.
  list(FILTER wanted EXCLUDE REGEX "^include/vantiro-protos/internal/")
endif()
list(TRANSFORM wanted REPLACE "<config>" "${CONFIG}")
file(GLOB_RECURSE installed RELATIVE "${PREFIX}" "${PREFIX}/*")

set(missing ${wanted})
list(REMOVE_ITEM missing ${installed})
set(unexpected ${installed})
list(REMOVE_ITEM unexpected ${wanted})
if(missing OR unexpected)
  message(FATAL_ERROR "not installed: ${missing}\nnot expected: ${unexpected}")
endif()

# What is installed can be moved, and outlives the tree that it was built in.
foreach(name IN LISTS installed)
  if(NOT name MATCHES "\\.so$")
    file(READ "${PREFIX}/${name}" text)
    foreach(folder IN ITEMS "${SOURCE}" "${BUILD}" "${PREFIX}")
      string(FIND "${text}" "${folder}/" at)
      if(NOT at EQUAL -1)
        message(FATAL_ERROR "${name} names ${folder}")
      endif()
    endforeach()
  endif()
endforeach()
