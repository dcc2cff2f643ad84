# Programs that run while the project is built. A build for another machine
# takes them from a build for this one.
set(VANTIRO_HOST_BUILD "" CACHE PATH
    "When cross-compiling: a build folder for this machine")

# vantiro_host_program(<variable> <target> <folder>): the command that runs the
# target of that folder.
function(vantiro_host_program variable target folder)
  set(program "$<TARGET_FILE:${target}>")
  if(CMAKE_CROSSCOMPILING)
    set(program "${VANTIRO_HOST_BUILD}/${folder}/${target}")
    if(NOT EXISTS "${program}")
      message(FATAL_ERROR
        "${program} is missing. Build the target ${target} for this machine "
        "first, or use './run arm64', which does.")
    endif()
  endif()
  set(${variable} "${program}" PARENT_SCOPE)
endfunction()
