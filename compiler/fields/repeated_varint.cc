#include "compiler/fields/repeated_varint.h"

#include "compiler/type_name.h"

namespace vantiro {
namespace compiler {

std::string RepeatedVarintFieldGenerator::ElementToGet() const {
  const std::string value = RepeatedScalarFieldGenerator::ElementToGet();
  return descriptor()->enum_type() == nullptr
             ? value
             : "static_cast<" + TypeName(descriptor()) + ">(" + value + ")";
}

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

std::string RepeatedVarintFieldGenerator::ReadFunction() const {
  return std::string("internal::ReadRepeatedVarint<internal::") + kind_.name +
         ">";
}

std::string RepeatedBoolFieldGenerator::WriteFunction() const {
  return "internal::WritePackedBools<" + tag_value() + ">";
}

std::string RepeatedBoolFieldGenerator::PayloadSize() const {
  return "static_cast<size_t>(" + name() + "_.size())";
}

}  // namespace compiler
}  // namespace vantiro
