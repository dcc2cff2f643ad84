# Who emits the classes. Protocol Buffers 3.9 does it itself: its output is the
# contract. What 3.21 emits is something else, so the plug-in does it there.

set(VANTIRO_RUNTIME 3.9)
set(VANTIRO_RUNTIME_PATTERN [[^3\.9\.]])
set(default_classes protoc)
if(NOT Protobuf_VERSION MATCHES "${VANTIRO_RUNTIME_PATTERN}")
  set(VANTIRO_RUNTIME 3.21)
  set(VANTIRO_RUNTIME_PATTERN [[^(3\.)?21\.]])
  set(default_classes plugin)
endif()
if(NOT Protobuf_VERSION MATCHES "${VANTIRO_RUNTIME_PATTERN}")
  message(FATAL_ERROR
    "Protocol Buffers 3.9 or 3.21 is needed, found ${Protobuf_VERSION}. On "
    "Debian 12, './run setup' installs 3.21.")
endif()

# The library has no type information. The headers of 3.9 ask for that of the
# classes, in programs too, unless they are told not to.
set(VANTIRO_RUNTIME_DEFINITIONS "")
if(VANTIRO_RUNTIME STREQUAL "3.9")
  set(VANTIRO_RUNTIME_DEFINITIONS GOOGLE_PROTOBUF_NO_RTTI)
endif()

set(VANTIRO_CLASSES "${default_classes}" CACHE STRING
    "Who emits the classes: plugin, or protoc by itself")
set_property(CACHE VANTIRO_CLASSES PROPERTY STRINGS plugin protoc)
if(NOT VANTIRO_CLASSES MATCHES "^(plugin|protoc)$")
  message(FATAL_ERROR
    "VANTIRO_CLASSES is plugin or protoc, not '${VANTIRO_CLASSES}'.")
endif()
if(VANTIRO_CLASSES STREQUAL "plugin" AND NOT VANTIRO_RUNTIME STREQUAL "3.21")
  message(FATAL_ERROR
    "The plug-in's classes need Protocol Buffers 3.21, found "
    "${Protobuf_VERSION}. Here protoc's own are used: -DVANTIRO_CLASSES=protoc.")
endif()

# Over 3.21 protoc's own classes are for comparison only: they run code at load,
# and their inline functions call what the contract does not export.
set(VANTIRO_KEEPS_CONTRACT ON)
if(VANTIRO_CLASSES STREQUAL "protoc" AND VANTIRO_RUNTIME STREQUAL "3.21")
  set(VANTIRO_KEEPS_CONTRACT OFF)
endif()

# vantiro_generate(<variable> <schema folder> <output folder> <stem>...)
#
# Makes <stem>.pb.h and <stem>.pb.cc of every unit, and stores the sources'
# paths in <variable>. The units may import those of any folder in
# VANTIRO_IMPORT_PATH.
function(vantiro_generate variable schema_folder output_folder)
  set(import_flags "-I${schema_folder}")
  foreach(folder IN LISTS VANTIRO_IMPORT_PATH)
    list(APPEND import_flags "-I${folder}")
  endforeach()
  set(emit "--cpp_out=${output_folder}")
  set(plugin "")
  if(VANTIRO_CLASSES STREQUAL "plugin")
    vantiro_host_program(plugin protoc-gen-vantiro compiler)
    set(emit "--plugin=protoc-gen-vantiro=${plugin}"
      "--vantiro_out=${output_folder}")
  endif()
  file(MAKE_DIRECTORY "${output_folder}")
  set(sources "")
  foreach(stem IN LISTS ARGN)
    set(source "${output_folder}/${stem}.pb.cc")
    add_custom_command(
      OUTPUT "${source}" "${output_folder}/${stem}.pb.h"
      COMMAND protobuf::protoc ${import_flags} ${emit}
        "--dependency_out=${output_folder}/${stem}.d"
        "${stem}.proto"
      DEPENDS ${plugin} "${schema_folder}/${stem}.proto"
      DEPFILE "${output_folder}/${stem}.d"
      COMMENT "Classes of ${stem}"
      VERBATIM)
    list(APPEND sources "${source}")
  endforeach()
  set(${variable} "${sources}" PARENT_SCOPE)
endfunction()
