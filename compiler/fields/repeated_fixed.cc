#include "compiler/fields/repeated_fixed.h"

namespace vantiro {
namespace compiler {

std::string RepeatedFixedFieldGenerator::PayloadSize() const {
  return Internal("FixedPayloadSize(") + name() + "_)";
}

std::string RepeatedFixedFieldGenerator::WriteFunction() const {
  return Internal("WritePackedFixed<") + tag_value() + ">";
}

std::string RepeatedFixedFieldGenerator::ReadFunction() const {
  return Internal("ReadRepeatedFixed");
}

}  // namespace compiler
}  // namespace vantiro
