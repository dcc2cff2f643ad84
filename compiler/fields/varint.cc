#include "compiler/fields/varint.h"

#include "compiler/type_name.h"

namespace vantiro {
namespace compiler {

std::string VarintAccessorType(const google::protobuf::FieldDescriptor* field,
                               const VarintKind& kind) {
  return field->enum_type() == nullptr ? kind.stored_type : TypeName(field);
}

std::string VarintFieldGenerator::ValueToGet() const {
  const std::string value = ScalarFieldGenerator::ValueToGet();
  return descriptor()->enum_type() == nullptr
             ? value
             : "static_cast<" + TypeName(descriptor()) + ">(" + value + ")";
}

std::string VarintFieldGenerator::ValueSize() const {
  return Internal("WireFormatLite::") + kind_.name + "Size(" + StoredValue() +
         ")";
}

}  // namespace compiler
}  // namespace vantiro
