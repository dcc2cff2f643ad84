// Whether the library would write a record in the same bytes.

#ifndef VANTIRO_TOOLS_CHECK_CANONICAL_FORM_H_
#define VANTIRO_TOOLS_CHECK_CANONICAL_FORM_H_

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "tools/schema/schema.h"

namespace vantiro {
namespace tools {

// How often an encoding flag is set in a record.
struct FlagCount {
  // As EncodingFlags::Names.
  std::string name;
  size_t count;
  // Where it is set first.
  size_t offset;
};

struct CanonicalFormReport {
  // By the library's own class.
  bool parses = false;
  bool is_canonical = false;
  // Why it does not parse, as Fault::Text.
  std::string fault;
  // Why it is not canonical.
  std::vector<FlagCount> differences;
  // What is canonical but unusual: unknown fields, undeclared enum numbers, NaN
  // and -0.0.
  std::vector<FlagCount> remarks;
};

// Parses the bytes with the class of `type`, writes them again and compares.
CanonicalFormReport CheckCanonicalForm(const Descriptor& type,
                                       std::string_view bytes);

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_CHECK_CANONICAL_FORM_H_
