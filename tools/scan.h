// Records inside larger files.

#ifndef VANTIRO_TOOLS_SCAN_H_
#define VANTIRO_TOOLS_SCAN_H_

#include <cstddef>
#include <functional>
#include <string_view>
#include <vector>

#include "tools/evidence.h"
#include "tools/schema.h"

namespace vantiro {
namespace inspection {

struct Find {
  size_t offset;
  size_t size;
  const Descriptor* type;
  // The evidence in bits: noise gives as much once in 2^bits places.
  double bits;
};

// Evidence below this can come about by chance in a file of some gigabytes.
constexpr double kLeastScanBits = 48;

// The records of `types` in `bytes`, undamaged and as the library writes them,
// none in another, in the order of their offsets. Calls `progress`, if given,
// with the number of bytes looked at, every now and then.
std::vector<Find> Scan(const std::vector<const Descriptor*>& types,
                       std::string_view bytes, double least_bits,
                       const std::function<void(size_t)>& progress);

}  // namespace inspection
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_SCAN_H_
