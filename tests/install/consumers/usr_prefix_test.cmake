# Below /usr the library lies where it does below any other prefix. Nothing is
# installed here: what CMake would do is read from its script.

file(REMOVE_RECURSE "${SCRATCH}")
# The second prefix is set in a tree that has known another, as people do.
foreach(prefix IN ITEMS /usr /opt/vantiro /usr)
  execute_process(
    COMMAND ${CMAKE_COMMAND} -S "${SOURCE}" -B "${SCRATCH}" -G "${GENERATOR}"
      -DVANTIRO_TESTS=OFF
      "-DCMAKE_CXX_COMPILER=${COMPILER}" "-DCMAKE_INSTALL_PREFIX=${prefix}"
    OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
  file(READ "${SCRATCH}/lib/cmake_install.cmake" script)
  foreach(folder IN ITEMS lib lib/cmake/VantiroProtos lib/pkgconfig)
    string(FIND "${script}" "\"\${CMAKE_INSTALL_PREFIX}/${folder}\"" at)
    if(at EQUAL -1)
      message(FATAL_ERROR "nothing would go to ${prefix}/${folder}")
    endif()
  endforeach()
endforeach()
