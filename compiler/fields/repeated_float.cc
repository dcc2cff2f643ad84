#include "compiler/fields/repeated_float.h"

namespace vantiro {
namespace compiler {

std::string RepeatedFloatFieldGenerator::PayloadSize() const {
  return Internal("FloatPayloadSize(") + name() + "_)";
}

std::string RepeatedFloatFieldGenerator::WriteFunction() const {
  return Internal(is_packed() ? "WritePackedFloats<" : "WriteUnpackedFixed<") +
         tag_value() + ">";
}

std::string RepeatedFloatFieldGenerator::ReadFunction() const {
  return Internal(looks_ahead() ? "ReadRepeatedFloat" : "ReadRepeatedFixed<") +
         (looks_ahead() ? "" : Internal("LookAhead::kNone>"));
}

}  // namespace compiler
}  // namespace vantiro
