#include "compiler/fields/bool.h"

namespace vantiro {
namespace compiler {

std::string BoolField::Parse() const {
  return ParseWhenTag("internal::ReadVarintField<internal::Bool>(p + " +
                      holes().at("tag_size") + ", end, &self->scalars_." +
                      descriptor()->name() + ")");
}

}  // namespace compiler
}  // namespace vantiro
