# vantiro_generate(<variable> <schema folder> <output folder> <stem>...)
#
# Makes <stem>.pb.h and <stem>.pb.cc of every unit by the plug-in, and stores
# the sources' paths in <variable>. The units may import those of any folder in
# VANTIRO_IMPORT_PATH.
function(vantiro_generate variable schema_folder output_folder)
  set(import_flags "-I${schema_folder}")
  foreach(folder IN LISTS VANTIRO_IMPORT_PATH)
    list(APPEND import_flags "-I${folder}")
  endforeach()
  file(MAKE_DIRECTORY "${output_folder}")
  set(sources "")
  foreach(stem IN LISTS ARGN)
    set(source "${output_folder}/${stem}.pb.cc")
    add_custom_command(
      OUTPUT "${source}" "${output_folder}/${stem}.pb.h"
      COMMAND protobuf::protoc
        ${import_flags}
        "--plugin=protoc-gen-vantiro=$<TARGET_FILE:protoc-gen-vantiro>"
        "--vantiro_out=${output_folder}"
        "--dependency_out=${output_folder}/${stem}.d"
        "${stem}.proto"
      DEPENDS protoc-gen-vantiro "${schema_folder}/${stem}.proto"
      DEPFILE "${output_folder}/${stem}.d"
      COMMENT "Classes of ${stem}"
      VERBATIM)
    list(APPEND sources "${source}")
  endforeach()
  set(${variable} "${sources}" PARENT_SCOPE)
endfunction()
