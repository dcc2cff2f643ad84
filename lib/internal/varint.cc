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

// A one in each byte that ends a varint.
uint64_t LastBytes(const uint8_t* p) {
  uint64_t bytes;
  std::memcpy(&bytes, p, sizeof(bytes));
  return (~bytes & kContinuationBits) >> 7;
}

ptrdiff_t SumOfBytes(uint64_t ones) {
  return static_cast<ptrdiff_t>(ones * 0x0101010101010101 >> 56);
}

}  // namespace

Varint ReadLongVarint(const uint8_t* p, const uint8_t* end) {
  // Three bytes come often.
  if (end - p >= 3 && p[2] < 0x80) {
    return {p + 3, (p[0] & uint64_t{0x7f}) | (p[1] & uint64_t{0x7f}) << 7 |
                       uint64_t{p[2]} << 14};
  }
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

ptrdiff_t CountVarints(const uint8_t* p, const uint8_t* end) {
  ptrdiff_t count = 0;
  if (end - p < 8) {
    for (; p != end; ++p) count += *p < 0x80 ? 1 : 0;
    return count;
  }
  for (; end - p >= 8; p += 8) count += SumOfBytes(LastBytes(p));
  // The last eight bytes, without those that have been counted.
  const ptrdiff_t counted = 8 - (end - p);
  return counted == 8 ? count
                      : count + SumOfBytes(LastBytes(end - 8) >> (8 * counted));
}

}  // namespace internal
}  // namespace vantiro
