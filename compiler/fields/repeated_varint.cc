#include "compiler/fields/repeated_varint.h"

namespace vantiro {
namespace compiler {

std::string RepeatedVarintField::PayloadSize() const {
  return std::string("WireFormatLite::") + kind_.name + "Size(" +
         descriptor()->name() + "_)";
}

std::string RepeatedVarintField::WriteFunction() const {
  return "internal::WritePackedVarints<" + holes().at("tag_value") + ", " +
         kind_.stored_type + ", internal::" + kind_.to_varint + ">";
}

std::string RepeatedVarintField::ReadPackedFunction() const {
  return std::string("internal::ReadPackedVarints<internal::") + kind_.name +
         ">";
}

std::string RepeatedVarintField::ReadUnpackedFunction() const {
  return std::string("internal::ReadUnpackedVarint<internal::") + kind_.name +
         ">";
}

std::string RepeatedBoolField::PayloadSize() const {
  return "static_cast<size_t>(" + descriptor()->name() + "_.size())";
}

}  // namespace compiler
}  // namespace vantiro
