#include "compiler/fields/repeated_fixed.h"

namespace vantiro {
namespace compiler {

std::string RepeatedFixedFieldGenerator::PayloadSize() const {
  return Internal("FixedPayloadSize(") + name() + "_)";
}

std::string RepeatedFixedFieldGenerator::WriteFunction() const {
  return Internal(is_packed() ? "WritePackedFixed<" : "WriteUnpackedFixed<") +
         tag_value() + ">";
}

std::string RepeatedFixedFieldGenerator::ReadFunction() const {
  return Internal(looks_ahead() ? "ReadRepeatedFixed" : "ReadRepeatedFixed<") +
         (looks_ahead() ? "" : Internal("LookAhead::kNone>"));
}

}  // namespace compiler
}  // namespace vantiro
