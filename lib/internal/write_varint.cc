#include "internal/write_varint.h"

namespace vantiro {
namespace internal {

uint8_t* WriteLongVarint(uint8_t* p, uint64_t value) {
  // Spreads the low 56 bits over eight bytes of seven bits each.
  uint64_t spread = (value & 0x000000000fffffff) | (value & 0x00fffffff0000000)
                                                       << 4;
  spread = (spread & 0x00003fff00003fff) | (spread & 0x0fffc0000fffc000) << 2;
  spread = (spread & 0x007f007f007f007f) | (spread & 0x3f803f803f803f80) << 1;
  constexpr uint64_t kContinuationBits = 0x8080808080808080;
  const uint64_t high = value >> 56;
  if (high == 0) {
    const int last = (63 - __builtin_clzll(spread)) / 8;
    spread |= kContinuationBits & ((uint64_t{1} << (8 * last)) - 1);
    Store(p, spread);
    return p + last + 1;
  }
  spread |= kContinuationBits;
  Store(p, spread);
  p[8] = static_cast<uint8_t>(high);
  if (high < 0x80) return p + 9;
  p[8] = static_cast<uint8_t>(high | 0x80);
  p[9] = 1;
  return p + 10;
}

}  // namespace internal
}  // namespace vantiro
