#include "internal/varint.h"

#include <cstring>

namespace vantiro {
namespace internal {

namespace {

constexpr uint64_t kContinuationBits = 0x8080808080808080;

// Byte by byte, for varints near the end of the input.
Varint ReadVarintNearEnd(const uint8_t* p, const uint8_t* end) {
  uint64_t value = 0;
  for (int i = 0; i < kMaxVarintSize && p + i != end; ++i) {
    const uint64_t byte = p[i];
    value |= (byte & 0x7f) << (7 * i);
    if (byte < 0x80) return {p + i + 1, value};
  }
  return {nullptr, 0};
}

// Puts the low seven bits of each byte next to each other.
uint64_t JoinSevenBits(uint64_t bytes) {
  bytes &= ~kContinuationBits;
  bytes = (bytes & 0x007f007f007f007f) | (bytes & 0x7f007f007f007f00) >> 1;
  bytes = (bytes & 0x00003fff00003fff) | (bytes & 0x3fff00003fff0000) >> 2;
  return (bytes & 0x000000000fffffff) | (bytes & 0x0fffffff00000000) >> 4;
}

}  // namespace

Varint ReadLongVarint(const uint8_t* p, const uint8_t* end) {
  if (end - p < kMaxVarintSize) return ReadVarintNearEnd(p, end);
  uint64_t bytes;
  std::memcpy(&bytes, p, sizeof(bytes));
  const uint64_t last_bytes = ~bytes & kContinuationBits;
  if (last_bytes != 0) {
    const uint64_t up_to_last = last_bytes ^ (last_bytes - 1);
    return {p + __builtin_ctzll(last_bytes) / 8 + 1,
            JoinSevenBits(bytes & up_to_last)};
  }
  uint64_t value = JoinSevenBits(bytes) | static_cast<uint64_t>(p[8] & 0x7f)
                                              << 56;
  if (p[8] < 0x80) return {p + 9, value};
  if (p[9] >= 0x80) return {nullptr, 0};
  value |= static_cast<uint64_t>(p[9]) << 63;
  return {p + 10, value};
}

}  // namespace internal
}  // namespace vantiro
