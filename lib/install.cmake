# What `cmake --install` installs, and how other projects find it.

include(CMakePackageConfigHelpers)

set(config_folder "${CMAKE_INSTALL_LIBDIR}/cmake/VantiroProtos")
install(TARGETS vantiro_protos EXPORT VantiroProtosTargets
  LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT library)
install(EXPORT VantiroProtosTargets
  NAMESPACE VantiroProtos:: DESTINATION "${config_folder}" COMPONENT dev)

foreach(stem IN LISTS VANTIRO_UNITS)
  install(FILES "${PROJECT_BINARY_DIR}/generated/${stem}.pb.h"
    DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/vantiro-protos" COMPONENT dev)
  install(FILES "${PROJECT_SOURCE_DIR}/schema/${stem}.proto"
    DESTINATION "${CMAKE_INSTALL_DATADIR}/vantiro-protos/schema" COMPONENT dev)
endforeach()

# What the emitted headers include.
if(VANTIRO_CLASSES STREQUAL "plugin")
  install(FILES internal/accessors.h internal/message_access.h
    internal/repeated_capacity.h
    DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/vantiro-protos/internal"
    COMPONENT dev)
endif()

# The schema for programs that read records without the classes.
install(FILES "${VANTIRO_DESCRIPTOR_SET}"
  DESTINATION "${CMAKE_INSTALL_DATADIR}/vantiro-protos" COMPONENT dev)

configure_package_config_file(
  "${PROJECT_SOURCE_DIR}/cmake/VantiroProtosConfig.cmake.in"
  "${PROJECT_BINARY_DIR}/VantiroProtosConfig.cmake"
  INSTALL_DESTINATION "${config_folder}")
write_basic_package_version_file(
  "${PROJECT_BINARY_DIR}/VantiroProtosConfigVersion.cmake"
  COMPATIBILITY SameMinorVersion)
file(RELATIVE_PATH VANTIRO_PC_TO_PREFIX
  "${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig" "${CMAKE_INSTALL_PREFIX}")
set(VANTIRO_PC_DEFINITIONS ${VANTIRO_RUNTIME_DEFINITIONS})
list(TRANSFORM VANTIRO_PC_DEFINITIONS PREPEND " -D")
list(JOIN VANTIRO_PC_DEFINITIONS "" VANTIRO_PC_DEFINITIONS)
configure_file("${PROJECT_SOURCE_DIR}/cmake/vantiro-protos.pc.in"
  "${PROJECT_BINARY_DIR}/vantiro-protos.pc" @ONLY)
install(FILES
  "${PROJECT_BINARY_DIR}/VantiroProtosConfig.cmake"
  "${PROJECT_BINARY_DIR}/VantiroProtosConfigVersion.cmake"
  DESTINATION "${config_folder}" COMPONENT dev)
install(FILES "${PROJECT_BINARY_DIR}/vantiro-protos.pc"
  DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig" COMPONENT dev)
