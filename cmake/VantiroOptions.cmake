# How our own code is compiled.

add_library(vantiro_options INTERFACE)
target_compile_features(vantiro_options INTERFACE cxx_std_17)
target_compile_options(vantiro_options INTERFACE
  -Wall -Wextra -Wconversion -Wextra-semi -Wimplicit-fallthrough
  -Wnon-virtual-dtor -Wold-style-cast -Woverloaded-virtual -Wshadow
  -Wsign-conversion)

if(VANTIRO_SANITIZE)
  add_compile_options(-fsanitize=${VANTIRO_SANITIZE} -fno-omit-frame-pointer -O1)
  add_link_options(-fsanitize=${VANTIRO_SANITIZE})
  if(VANTIRO_SANITIZE MATCHES "undefined")
    # The classes are built without type information, which this check needs.
    add_compile_options(-fno-sanitize=vptr)
    add_link_options(-fno-sanitize=vptr)
  endif()
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # Sanitizers make GCC see it where it is not, as inside <regex>.
    add_compile_options(-Wno-maybe-uninitialized)
  endif()
endif()
