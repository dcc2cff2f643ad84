#include "compiler/fields/varint.h"

#include "compiler/names.h"

namespace vantiro {
namespace compiler {

std::string VarintAccessorType(const google::protobuf::FieldDescriptor* field,
                               const VarintKind& kind) {
  return field->enum_type() == nullptr ? kind.stored_type
                                       : QualifiedName(field->enum_type());
}

std::string VarintFieldGenerator::ValueSize() const {
  return std::string("WireFormatLite::") + kind_.name + "Size(scalars_." +
         descriptor()->name() + ")";
}

std::string VarintFieldGenerator::ValueToWrite() const {
  return std::string("internal::") + kind_.name + "::ToVarint(" +
         ScalarFieldGenerator::ValueToWrite() + ")";
}

std::string VarintFieldGenerator::Parse() const {
  return ParseWhenTag(std::string("internal::ReadVarintField<internal::") +
                      kind_.name + ">(p + " + variables().at("tag_size") +
                      ", end, &self->scalars_." + descriptor()->name() + ")");
}

}  // namespace compiler
}  // namespace vantiro
