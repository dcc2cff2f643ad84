#include "compiler/fields/float.h"

namespace vantiro {
namespace compiler {

std::string FloatField::WriteValue() const {
  return "frame::WriteFloat(p, scalars_." + descriptor()->name() + ")";
}

std::string FloatField::Parse() const {
  return ParseWhenTag("frame::ReadFloat(p + " + holes().at("tag_size") +
                      ", end, &self->scalars_." + descriptor()->name() + ")");
}

}  // namespace compiler
}  // namespace vantiro
