#include "compiler/fields/repeated_float.h"

namespace vantiro {
namespace compiler {

std::string RepeatedFloatField::PayloadSize() const {
  return "sizeof(float) * static_cast<size_t>(" + descriptor()->name() +
         "_.size())";
}

std::string RepeatedFloatField::WriteFunction() const {
  return "internal::WritePackedFloats<" + holes().at("tag_value") + ">";
}

std::string RepeatedFloatField::ReadPackedFunction() const {
  return "internal::ReadPackedFloats";
}

std::string RepeatedFloatField::ReadUnpackedFunction() const {
  return "internal::ReadUnpackedFloat";
}

}  // namespace compiler
}  // namespace vantiro
