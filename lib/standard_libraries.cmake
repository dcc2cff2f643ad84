# Which libraries the library names as needed, and in what order.

if(VANTIRO_CLASSES STREQUAL "plugin")
  # A desk's library names what it uses.
  target_link_options(vantiro_protos PRIVATE "LINKER:--as-needed")
  return()
endif()

# The contract's library names these behind the runtime, used or not. They go to
# the linker itself, since g++ would move them about. Where the C library has
# absorbed libdl, only its bare file is left to name.
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
