#include "compiler/fields/repeated_varint.h"

namespace vantiro {
namespace compiler {

std::string RepeatedVarintFieldGenerator::PayloadSize() const {
  const std::string size_kind = kind_.size_kind;
  return (size_kind.empty()
              ? std::string("WireFormatLite::") + kind_.name + "Size("
              : "internal::" + size_kind + "PayloadSize(") +
         name() + "_)";
}

std::string RepeatedVarintFieldGenerator::WriteFunction() const {
  return "internal::WritePackedVarints<" + tag_value() +
         ", internal::" + kind_.name + ">";
}

std::string RepeatedVarintFieldGenerator::ReadPackedFunction() const {
  return std::string("internal::ReadPackedVarints<internal::") + kind_.name +
         ">";
}

std::string RepeatedVarintFieldGenerator::ReadUnpackedFunction() const {
  return std::string("internal::ReadUnpackedVarint<internal::") + kind_.name +
         ">";
}

std::string RepeatedBoolFieldGenerator::WriteFunction() const {
  return "internal::WritePackedBools<" + tag_value() + ">";
}

std::string RepeatedBoolFieldGenerator::PayloadSize() const {
  return "static_cast<size_t>(" + descriptor()->name() + "_.size())";
}

}  // namespace compiler
}  // namespace vantiro
