#include "compiler/fields/float.h"

namespace vantiro {
namespace compiler {

std::string FloatField::WriteValue() const {
  return "internal::WriteFloat(p, scalars_." + descriptor()->name() + ")";
}

std::string FloatField::Parse() const {
  return ParseWhenTag("internal::ReadFloat(p + " + holes().at("tag_size") +
                      ", end, &self->scalars_." + descriptor()->name() + ")");
}

}  // namespace compiler
}  // namespace vantiro
