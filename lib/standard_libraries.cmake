# The libraries that the library lists as needed (DT_NEEDED), and their order.

if(VANTIRO_CLASSES STREQUAL "plugin")
  # On a development machine: those that are used.
  target_link_options(vantiro_protos PRIVATE "LINKER:--as-needed")
  return()
endif()

# The contract lists these after the runtime, whether they are used or not. They
# are passed to the linker directly, since g++ would change their order. A C
# library that contains the functions of libdl has no link to libdl.so, only the
# file libdl.so.2.
set(standard_cxx stdc++)
if(CMAKE_CXX_IMPLICIT_LINK_LIBRARIES MATCHES "(^|;)c\\+\\+(_shared)?(;|$)")
  set(standard_cxx c++)
endif()
set(dl dl)
if(NOT ANDROID)
  include(CheckLinkerFlag)
  check_linker_flag(CXX "-l:libdl.so.2" VANTIRO_HAS_LIBDL_FILE)
  if(VANTIRO_HAS_LIBDL_FILE)
    set(dl ":libdl.so.2")
  endif()
endif()
target_link_options(vantiro_protos PRIVATE "LINKER:--no-as-needed")
target_link_libraries(vantiro_protos
  PRIVATE "-Wl,-l${standard_cxx},-lc,-lm,-l${dl},--as-needed")
