#include "compiler/fields/repeated_float.h"

namespace vantiro {
namespace compiler {

std::string RepeatedFloatFieldGenerator::PayloadSize() const {
  return "sizeof(float) * static_cast<size_t>(" + descriptor()->name() +
         "_.size())";
}

std::string RepeatedFloatFieldGenerator::WriteFunction() const {
  return "internal::WritePackedFloats<" + variables().at("tag_value") + ">";
}

std::string RepeatedFloatFieldGenerator::ReadPackedFunction() const {
  return "internal::ReadPackedFloats";
}

std::string RepeatedFloatFieldGenerator::ReadUnpackedFunction() const {
  return "internal::ReadUnpackedFloat";
}

}  // namespace compiler
}  // namespace vantiro
