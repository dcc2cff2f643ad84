// Finds records in larger files.

#ifndef VANTIRO_TOOLS_IDENTIFY_SCAN_H_
#define VANTIRO_TOOLS_IDENTIFY_SCAN_H_

#include <cstddef>
#include <functional>
#include <string_view>
#include <vector>

#include "tools/identify/score.h"
#include "tools/schema/schema.h"

namespace vantiro {
namespace tools {

struct Match {
  size_t offset;
  size_t size;
  const Descriptor* type;
  // The score: how many bits less the bytes cost as a record than as a part of
  // the file around them.
  double bits;
};

// In hundreds of megabytes of a system's files nothing else than records
// reaches this.
constexpr double kDefaultScanBits = 64;

// The undamaged, canonical records of `types` in `bytes` that score at least
// `min_bits`, in ascending order, none inside another. Calls `progress`, if
// given, with the number of bytes read so far.
std::vector<Match> Scan(const std::vector<const Descriptor*>& types,
                        std::string_view bytes, double min_bits,
                        const std::function<void(size_t)>& progress);

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_IDENTIFY_SCAN_H_
