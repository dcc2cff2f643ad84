# Debian packages, by cpack. What is installed goes to the package of its
# component: library, dev or tools.

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME vantiro-protos)
set(CPACK_PACKAGE_CONTACT "Vantiro developers <developers@vantiro.invalid>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${PROJECT_BINARY_DIR}/lib")
get_cmake_property(CPACK_COMPONENTS_ALL COMPONENTS)
list(REMOVE_ITEM CPACK_COMPONENTS_ALL Unspecified)

set(same_version "vantiro-protos (= ${PROJECT_VERSION})")
set(CPACK_DEBIAN_LIBRARY_PACKAGE_NAME vantiro-protos)
set(CPACK_DEBIAN_LIBRARY_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_LIBRARY_DESCRIPTION
  "Record types of a camera stack, shared library")
set(CPACK_DEBIAN_DEV_PACKAGE_NAME vantiro-protos-dev)
set(CPACK_DEBIAN_DEV_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEV_PACKAGE_DEPENDS "${same_version}, libprotobuf-dev")
set(CPACK_DEBIAN_DEV_DESCRIPTION
  "Record types of a camera stack, headers and schema")
set(CPACK_DEBIAN_TOOLS_PACKAGE_NAME vantiro-protos-tools)
set(CPACK_DEBIAN_TOOLS_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_TOOLS_DESCRIPTION
  "Record types of a camera stack, programs that read records")
include(CPack)
