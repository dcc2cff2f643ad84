// Reading varints from flat memory.

#ifndef VANTIRO_LIB_INTERNAL_VARINT_H_
#define VANTIRO_LIB_INTERNAL_VARINT_H_

#include <google/protobuf/wire_format_lite.h>

#include <cstddef>
#include <cstdint>

namespace vantiro {
namespace internal {

// The most bytes that a varint may have.
constexpr int kMaxVarintSize = 10;

// A varint that was read: its value, and the position after it, which is null
// if the input ends within the varint or the varint has more than ten bytes.
struct Varint {
  const uint8_t* next;
  uint64_t value;
};

// Reads a varint of any length, except that its first two bytes, if there are
// so many, are not the last one: ReadVarint has looked at them. Bits beyond the
// 64th are dropped.
Varint ReadLongVarint(const uint8_t* p, const uint8_t* end);

__attribute__((always_inline)) inline Varint ReadVarint(const uint8_t* p,
                                                        const uint8_t* end) {
  if (__builtin_expect(p < end, true)) {
    const uint64_t first = p[0];
    if (__builtin_expect_with_probability(first < 0x80, 1, 0.6)) {
      return {p + 1, first};
    }
    if (__builtin_expect(p + 1 < end, true)) {
      const uint64_t second = p[1];
      if (second < 0x80) return {p + 2, (first & 0x7f) | second << 7};
    }
  }
  return ReadLongVarint(p, end);
}

// How many varints end in [p, end).
ptrdiff_t CountVarints(const uint8_t* p, const uint8_t* end);

// The kinds of field that are varints on the wire: how each gets its value from
// the varint, and which varint it writes, of how many bytes at most. 32-bit
// kinds take the low 32 bits and ignore the others. A signed result of ToVarint
// is sign-extended to 64 bits when it is written.
struct UInt32 {
  using Type = uint32_t;
  static constexpr int kMaxSize = 5;
  static uint32_t ToVarint(Type v) { return v; }
  static Type FromVarint(uint64_t v) { return static_cast<uint32_t>(v); }
};
struct Int32 {
  using Type = int32_t;
  static constexpr int kMaxSize = 10;
  static int32_t ToVarint(Type v) { return v; }
  static Type FromVarint(uint64_t v) { return static_cast<int32_t>(v); }
};
struct SInt32 {
  using Type = int32_t;
  static constexpr int kMaxSize = 5;
  static uint32_t ToVarint(Type v) {
    return google::protobuf::internal::WireFormatLite::ZigZagEncode32(v);
  }
  static Type FromVarint(uint64_t v) {
    return google::protobuf::internal::WireFormatLite::ZigZagDecode32(
        static_cast<uint32_t>(v));
  }
};
struct UInt64 {
  using Type = uint64_t;
  static constexpr int kMaxSize = 10;
  static uint64_t ToVarint(Type v) { return v; }
  static Type FromVarint(uint64_t v) { return v; }
};
struct Int64 {
  using Type = int64_t;
  static constexpr int kMaxSize = 10;
  static uint64_t ToVarint(Type v) { return static_cast<uint64_t>(v); }
  static Type FromVarint(uint64_t v) { return static_cast<int64_t>(v); }
};
struct SInt64 {
  using Type = int64_t;
  static constexpr int kMaxSize = 10;
  static uint64_t ToVarint(Type v) {
    return google::protobuf::internal::WireFormatLite::ZigZagEncode64(v);
  }
  static Type FromVarint(uint64_t v) {
    return google::protobuf::internal::WireFormatLite::ZigZagDecode64(v);
  }
};
struct Bool {
  using Type = bool;
  static Type FromVarint(uint64_t v) { return v != 0; }
};
// Enums are open: any number is taken, declared or not.
struct Enum {
  using Type = int;
  static constexpr int kMaxSize = 10;
  static int32_t ToVarint(Type v) { return v; }
  static Type FromVarint(uint64_t v) { return static_cast<int>(v); }
};

// Reads a singular field of `Kind`. Returns the position after it, or null.
template <typename Kind>
inline const uint8_t* ReadVarintField(const uint8_t* p, const uint8_t* end,
                                      typename Kind::Type* field) {
  const Varint varint = ReadVarint(p, end);
  if (__builtin_expect(varint.next != nullptr, true)) {
    *field = Kind::FromVarint(varint.value);
  }
  return varint.next;
}

// Reads the length of a string, a packed run or a sub-message. Returns the
// position after it, or null on failure, also for a length above 2^31 - 1.
inline const uint8_t* ReadLength(const uint8_t* p, const uint8_t* end,
                                 ptrdiff_t* length) {
  const Varint varint = ReadVarint(p, end);
  if (__builtin_expect(varint.value > INT32_MAX, false)) return nullptr;
  *length = static_cast<ptrdiff_t>(varint.value);
  return varint.next;
}

}  // namespace internal
}  // namespace vantiro

#endif  // VANTIRO_LIB_INTERNAL_VARINT_H_
