#include "compiler/fields/repeated_float.h"

namespace vantiro {
namespace compiler {

std::string RepeatedFloatFieldGenerator::PayloadSize() const {
  return Internal("FloatPayloadSize(") + name() + "_)";
}

std::string RepeatedFloatFieldGenerator::WriteFunction() const {
  return Internal("WritePackedFloats<") + tag_value() + ">";
}

std::string RepeatedFloatFieldGenerator::ReadFunction() const {
  return Internal("ReadRepeatedFloat");
}

}  // namespace compiler
}  // namespace vantiro
