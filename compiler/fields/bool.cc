#include "compiler/fields/bool.h"

namespace vantiro {
namespace compiler {

std::string BoolFieldGenerator::Parse() const {
  return ParseWhenTag("internal::ReadVarintField<internal::Bool>(p + " +
                      variables().at("tag_size") + ", end, &self->scalars_." +
                      descriptor()->name() + ")");
}

}  // namespace compiler
}  // namespace vantiro
