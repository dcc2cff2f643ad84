// Whether a record stands as the library writes it.

#ifndef VANTIRO_TOOLS_FORM_H_
#define VANTIRO_TOOLS_FORM_H_

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "tools/schema.h"

namespace vantiro {
namespace inspection {

// Something in which a record differs from what the library writes.
struct Peculiarity {
  // "unpacked element", "out of order" ...
  std::string what;
  size_t count;
  // Where it is so first.
  size_t offset;
};

struct Form {
  // By the library's own class.
  bool parses = false;
  bool is_canonical = false;
  // Why it does not parse, as Fault::Text.
  std::string fault;
  // Why it is not canonical; and what is canonical but worth to be told:
  // unknown fields, undeclared enum numbers, NaN and -0.0.
  std::vector<Peculiarity> differences;
  std::vector<Peculiarity> remarks;
};

// Parses the bytes with the class of `type`, writes them again and compares.
Form FormOf(const Descriptor& type, std::string_view bytes);

}  // namespace inspection
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_FORM_H_
