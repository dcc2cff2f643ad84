#include "compiler/fields/fixed.h"

namespace vantiro {
namespace compiler {

std::string DoubleFieldGenerator::AfterCopyOfScalars() const {
  return Substitute(variables(), R"(
      $internal$::DropNegativeZero(&$scalars$.$name$);
  )");
}

}  // namespace compiler
}  // namespace vantiro
