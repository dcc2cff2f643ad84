// Reading and writing singular varint fields, under the names of their types.

#ifndef VANTIRO_LIB_INTERNAL_VARINT_FIELDS_H_
#define VANTIRO_LIB_INTERNAL_VARINT_FIELDS_H_

#include <cstdint>

#include "internal/varint.h"
#include "internal/write_scalar.h"

namespace vantiro {
namespace internal {

// Read a value at `p` into `*field`. They return the position after it, or null
// on failure.

inline const uint8_t* ReadUInt32(const uint8_t* p, const uint8_t* end,
                                 uint32_t* field) {
  return ReadVarintField<UInt32>(p, end, field);
}
inline const uint8_t* ReadInt32(const uint8_t* p, const uint8_t* end,
                                int32_t* field) {
  return ReadVarintField<Int32>(p, end, field);
}
inline const uint8_t* ReadSInt32(const uint8_t* p, const uint8_t* end,
                                 int32_t* field) {
  return ReadVarintField<SInt32>(p, end, field);
}
inline const uint8_t* ReadUInt64(const uint8_t* p, const uint8_t* end,
                                 uint64_t* field) {
  return ReadVarintField<UInt64>(p, end, field);
}
inline const uint8_t* ReadInt64(const uint8_t* p, const uint8_t* end,
                                int64_t* field) {
  return ReadVarintField<Int64>(p, end, field);
}
inline const uint8_t* ReadSInt64(const uint8_t* p, const uint8_t* end,
                                 int64_t* field) {
  return ReadVarintField<SInt64>(p, end, field);
}
inline const uint8_t* ReadBool(const uint8_t* p, const uint8_t* end,
                               bool* field) {
  return ReadVarintField<Bool>(p, end, field);
}
inline const uint8_t* ReadEnum(const uint8_t* p, const uint8_t* end,
                               int* field) {
  return ReadVarintField<Enum>(p, end, field);
}

// Write tag and value at `p`, where there is space for them, unless the value
// is zero. They return the position after it.

template <uint32_t kTag>
__attribute__((always_inline)) inline uint8_t* WriteUInt32Field(
    uint8_t* p, uint32_t value) {
  return WriteVarintField<kTag>(p, UInt32::ToVarint(value));
}
template <uint32_t kTag>
__attribute__((always_inline)) inline uint8_t* WriteInt32Field(uint8_t* p,
                                                               int32_t value) {
  return WriteVarintField<kTag>(p, Int32::ToVarint(value));
}
template <uint32_t kTag>
__attribute__((always_inline)) inline uint8_t* WriteSInt32Field(uint8_t* p,
                                                                int32_t value) {
  return WriteVarintField<kTag>(p, SInt32::ToVarint(value));
}
template <uint32_t kTag>
__attribute__((always_inline)) inline uint8_t* WriteUInt64Field(
    uint8_t* p, uint64_t value) {
  return WriteVarintField<kTag>(p, UInt64::ToVarint(value));
}
template <uint32_t kTag>
__attribute__((always_inline)) inline uint8_t* WriteInt64Field(uint8_t* p,
                                                               int64_t value) {
  return WriteVarintField<kTag>(p, Int64::ToVarint(value));
}
template <uint32_t kTag>
__attribute__((always_inline)) inline uint8_t* WriteSInt64Field(uint8_t* p,
                                                                int64_t value) {
  return WriteVarintField<kTag>(p, SInt64::ToVarint(value));
}
template <uint32_t kTag>
__attribute__((always_inline)) inline uint8_t* WriteEnumField(uint8_t* p,
                                                              int value) {
  return WriteVarintField<kTag>(p, Enum::ToVarint(value));
}

}  // namespace internal
}  // namespace vantiro

#endif  // VANTIRO_LIB_INTERNAL_VARINT_FIELDS_H_
