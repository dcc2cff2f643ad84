# The schema as a descriptor set, with its comments.

set(VANTIRO_DESCRIPTOR_SET "${PROJECT_BINARY_DIR}/schema.binpb")
set(schema_files ${VANTIRO_UNITS})
list(TRANSFORM schema_files PREPEND "${PROJECT_SOURCE_DIR}/schema/")
list(TRANSFORM schema_files APPEND ".proto")
add_custom_command(
  OUTPUT "${VANTIRO_DESCRIPTOR_SET}"
  COMMAND protobuf::protoc "-I${PROJECT_SOURCE_DIR}/schema"
    --include_source_info "--descriptor_set_out=${VANTIRO_DESCRIPTOR_SET}"
    ${schema_files}
  DEPENDS ${schema_files}
  COMMENT "Descriptor set of the schema"
  VERBATIM)
add_custom_target(vantiro_descriptor_set ALL
  DEPENDS "${VANTIRO_DESCRIPTOR_SET}")
