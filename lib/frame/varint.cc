#include "frame/varint.h"

namespace vantiro {
namespace frame {

Varint ReadLongVarint(const uint8_t* p, const uint8_t* end) {
  constexpr int kMaxVarintBytes = 10;
  uint64_t value = 0;
  const ptrdiff_t available = end - p;
  const int limit = available < kMaxVarintBytes ? static_cast<int>(available)
                                                : kMaxVarintBytes;
  for (int i = 0; i < limit; ++i) {
    const uint64_t byte = p[i];
    value |= (byte & 0x7f) << (7 * i);
    if (byte < 0x80) return {p + i + 1, value};
  }
  return {nullptr, 0};
}

}  // namespace frame
}  // namespace vantiro
