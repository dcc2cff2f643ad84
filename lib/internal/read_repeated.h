// Reading the lists of scalars, packed and unpacked.

#ifndef VANTIRO_LIB_INTERNAL_READ_REPEATED_H_
#define VANTIRO_LIB_INTERNAL_READ_REPEATED_H_

#include <google/protobuf/repeated_field.h>

#include <algorithm>
#include <cstdint>
#include <cstring>

#include "internal/parse_state.h"
#include "internal/read_singular.h"
#include "internal/tag.h"
#include "internal/varint.h"

namespace vantiro {
namespace internal {

template <typename T>
using List = google::protobuf::RepeatedField<T>;

// Gives `list` the capacity `capacity` and no more. RepeatedField::Reserve does
// so for an empty list only, but how far ReadUnpacked looks ahead depends on
// it.
template <typename T>
void SetCapacity(List<T>* list, int64_t capacity) {
  if (list->Capacity() == 0) {
    list->Reserve(static_cast<int>(std::min<int64_t>(capacity, INT32_MAX)));
    return;
  }
  List<T> grown(list->GetArena());
  grown.Reserve(static_cast<int>(std::min<int64_t>(capacity, INT32_MAX)));
  grown.MergeFrom(*list);
  list->UnsafeArenaSwap(&grown);
}

// Makes room for `count` elements that come one by one: the capacity doubles,
// from four on, until it suffices.
template <typename T>
inline void GrowByDoubling(List<T>* list, ptrdiff_t count) {
  const int64_t wanted = list->size() + static_cast<int64_t>(count);
  if (wanted <= list->Capacity()) return;
  int64_t capacity = std::max<int64_t>(4, int64_t{list->Capacity()} * 2);
  while (capacity < wanted) capacity *= 2;
  SetCapacity(list, capacity);
}

// Makes room for `count` elements that come at once: the capacity at least
// doubles.
template <typename T>
inline void GrowAtOnce(List<T>* list, ptrdiff_t count) {
  const int64_t wanted = list->size() + static_cast<int64_t>(count);
  if (wanted <= list->Capacity()) return;
  SetCapacity(list,
              std::max({int64_t{4}, int64_t{list->Capacity()} * 2, wanted}));
}

// Reads a block of varints. One that is longer than the input is read as far
// as it goes, and the parse then fails; elements read before a failure stay.
// The elements are counted first, so that room is made once and never for more
// elements than there are bytes.
template <typename Kind>
const uint8_t* ReadPackedVarints(const uint8_t* p, const uint8_t* end,
                                 ptrdiff_t length,
                                 List<typename Kind::Type>* list) {
  const bool cut = length > end - p;
  if (!cut) end = p + length;
  const ptrdiff_t count =
      std::count_if(p, end, [](uint8_t byte) { return byte < 0x80; });
  const int size = list->size();
  GrowByDoubling(list, count);
  typename Kind::Type* const first =
      list->AddNAlreadyReserved(static_cast<int>(count));
  typename Kind::Type* element = first;
  while (p != end) {
    const Varint varint = ReadVarint(p, end);
    if (varint.next == nullptr) {
      list->Truncate(size + static_cast<int>(element - first));
      return nullptr;
    }
    *element++ = Kind::FromVarint(varint.value);
    p = varint.next;
  }
  return cut ? nullptr : p;
}

// Reads a packed block of `Kind` with its length.
template <typename Kind>
inline const uint8_t* ReadPacked(const uint8_t* p, const uint8_t* end,
                                 const ParseState& /*state*/,
                                 List<typename Kind::Type>* list) {
  ptrdiff_t length;
  p = ReadLength(p, end, &length);
  if (p == nullptr) return nullptr;
  return ReadPackedVarints<Kind>(p, end, length, list);
}

// The length of an enum's block is cut to 32 bits before it is looked at.
template <>
inline const uint8_t* ReadPacked<Enum>(const uint8_t* p, const uint8_t* end,
                                       const ParseState& /*state*/,
                                       List<int>* list) {
  const Varint varint = ReadVarint(p, end);
  const auto length = static_cast<int32_t>(varint.value);
  if (varint.next == nullptr || length < 0) return nullptr;
  return ReadPackedVarints<Enum>(varint.next, end, length, list);
}

// Reads one unpacked element, and then looks ahead for the list's PACKED tag,
// as long as the list has capacity to spare and the tag is at hand, taking what
// follows it as an element. So a packed block right after an unpacked element
// is misread, its length taken for an element. That is how these classes have
// always read such bytes and it is part of their contract
// (WireList.UnpackedBeforePacked*): do not mend it here.
template <typename Kind>
const uint8_t* ReadUnpacked(const uint8_t* p, const uint8_t* end,
                            RawTag packed_tag, const ParseState& state,
                            List<typename Kind::Type>* list) {
  Varint varint = ReadVarint(p, end);
  if (varint.next == nullptr) return nullptr;
  GrowByDoubling(list, 1);
  list->AddAlreadyReserved(Kind::FromVarint(varint.value));
  int spare = list->Capacity() - list->size();
  while (spare-- > 0 &&
         PeekTag(varint.next, state.AtHand(varint.next, end)) == packed_tag) {
    varint = ReadVarint(varint.next + RawTagSize(packed_tag), end);
    if (varint.next == nullptr) return nullptr;
    list->AddAlreadyReserved(Kind::FromVarint(varint.value));
  }
  return varint.next;
}

// Enum lists do not look ahead.
template <>
inline const uint8_t* ReadUnpacked<Enum>(const uint8_t* p, const uint8_t* end,
                                         RawTag /*packed_tag*/,
                                         const ParseState& /*state*/,
                                         List<int>* list) {
  const Varint varint = ReadVarint(p, end);
  if (varint.next == nullptr) return nullptr;
  GrowByDoubling(list, 1);
  list->AddAlreadyReserved(Enum::FromVarint(varint.value));
  return varint.next;
}

// Reads a block of floats. A length that is no multiple of four fails before
// any element is taken. A block that is longer than the input fails: within a
// sub-message that claims to have room for it no element is taken, otherwise as
// many as there are.
const uint8_t* ReadPackedFloats(const uint8_t* p, const uint8_t* end,
                                const ParseState& state, List<float>* list);

// As ReadUnpacked, look-ahead included.
const uint8_t* ReadUnpackedFloats(const uint8_t* p, const uint8_t* end,
                                  RawTag packed_tag, const ParseState& state,
                                  List<float>* list);

}  // namespace internal
}  // namespace vantiro

#endif  // VANTIRO_LIB_INTERNAL_READ_REPEATED_H_
