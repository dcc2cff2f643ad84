#include "compiler/fields/float.h"

namespace vantiro {
namespace compiler {

std::string FloatFieldGenerator::Parse() const {
  return ParseWhenTag("internal::ReadFloat(p + " + variables().at("tag_size") +
                      ", end, &self->scalars_." + descriptor()->name() + ")");
}

}  // namespace compiler
}  // namespace vantiro
