// What the bytes of a file look like apart from records.

#ifndef VANTIRO_TOOLS_IDENTIFY_CARRIER_H_
#define VANTIRO_TOOLS_IDENTIFY_CARRIER_H_

#include <array>
#include <cstddef>
#include <string_view>
#include <vector>

#include "tools/wire/fault.h"

namespace vantiro {
namespace tools {

class Carrier {
 public:
  explicit Carrier(std::string_view file) : file_(file) {}

  // The bits that the bytes of `span` cost if they are no record but more of
  // what is around them: sums over the first bytes, so that the bytes from a to
  // b of the span cost [b] - [a]. A byte is predicted from how often it occurs
  // in the kilobytes before and behind the span, and from the bytes 1, 2, 4 and
  // 8 before it, which it repeats in fills and tables.
  std::vector<double> Bits(const Span& span);

 private:
  // By byte: the share of all bytes.
  using Frequencies = std::array<double, 256>;

  const Frequencies& Around(const Span& span);

  const std::string_view file_;
  // The last result of Around, and the blocks that it was made from.
  Frequencies frequencies_;
  std::string_view before_;
  std::string_view behind_;
};

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_IDENTIFY_CARRIER_H_
