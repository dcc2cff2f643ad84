#include "compiler/fields/repeated_varint.h"

namespace vantiro {
namespace compiler {

std::string RepeatedVarintFieldGenerator::PayloadSize() const {
  return std::string("WireFormatLite::") + kind_.name + "Size(" +
         descriptor()->name() + "_)";
}

std::string RepeatedVarintFieldGenerator::WriteFunction() const {
  return "internal::WritePackedVarints<" + variables().at("tag_value") + ", " +
         kind_.stored_type + ", internal::" + kind_.to_varint + ">";
}

std::string RepeatedVarintFieldGenerator::ReadPackedFunction() const {
  return std::string("internal::ReadPackedVarints<internal::") + kind_.name +
         ">";
}

std::string RepeatedVarintFieldGenerator::ReadUnpackedFunction() const {
  return std::string("internal::ReadUnpackedVarint<internal::") + kind_.name +
         ">";
}

std::string RepeatedBoolFieldGenerator::PayloadSize() const {
  return "static_cast<size_t>(" + descriptor()->name() + "_.size())";
}

}  // namespace compiler
}  // namespace vantiro
