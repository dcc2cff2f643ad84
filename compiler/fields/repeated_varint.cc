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
  return Internal(size_kind.empty()
                      ? std::string("WireFormatLite::") + kind_.name + "Size("
                      : size_kind + "PayloadSize(") +
         name() + "_)";
}

std::string RepeatedVarintFieldGenerator::WriteFunction() const {
  return Internal(is_packed() ? "WritePackedVarints<"
                              : "WriteUnpackedVarints<") +
         tag_value() + ", " + Internal(kind_.name) + ">";
}

std::string RepeatedVarintFieldGenerator::ReadFunction() const {
  return Internal("ReadRepeatedVarint<") + Internal(kind_.name) +
         (looks_ahead() ? ">" : ", " + Internal("LookAhead::kNone>"));
}

std::string RepeatedBoolFieldGenerator::WriteFunction() const {
  return Internal(is_packed() ? "WritePackedBools<" : "WriteUnpackedFixed<") +
         tag_value() + ">";
}

std::string RepeatedBoolFieldGenerator::PayloadSize() const {
  return Internal("BoolPayloadSize(") + name() + "_)";
}

}  // namespace compiler
}  // namespace vantiro
