// Reading repeated fields of scalars, packed and unpacked.
//
// One occurrence of a packed field is a packed run: a length and so many bytes
// of elements.

#ifndef VANTIRO_LIB_INTERNAL_READ_REPEATED_H_
#define VANTIRO_LIB_INTERNAL_READ_REPEATED_H_

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <type_traits>

#include "internal/parse_state.h"
#include "internal/read_singular.h"
#include "internal/repeated_capacity.h"
#include "internal/tag.h"
#include "internal/varint.h"

namespace vantiro {
namespace internal {

// What a parser does after an unpacked element (ReadUnpackedVarint).
enum class LookAhead {
  kPackedTag,
  // Nothing: for fields that are declared with [packed = false], or whose tag
  // has more than two bytes.
  kNone,
};

// Reads a packed run of varints. If it is longer than the input, what is there
// is read and the parse then fails. Elements read before a failure stay. The
// elements are counted first, so that space is reserved once, and never for
// more elements than there are bytes.
template <typename Kind>
const uint8_t* ReadPackedVarints(const uint8_t* p, const uint8_t* end,
                                 const ParseState& /*state*/,
                                 RepeatedField<typename Kind::Type>* field) {
  Varint length = ReadVarint(p, end);
  // The length of a run of enums is reduced to its low 32 bits first.
  if (std::is_same<Kind, Enum>::value) length.value &= UINT32_MAX;
  if (length.next == nullptr || length.value > INT32_MAX) return nullptr;
  p = length.next;
  const bool is_truncated = static_cast<ptrdiff_t>(length.value) > end - p;
  if (!is_truncated) end = p + length.value;

  const ptrdiff_t count = CountVarints(p, end);
  const int size = field->size();
  const int capacity = field->Capacity();
  ReserveByDoubling(count, field);
  typename Kind::Type* const first =
      field->AddNAlreadyReserved(static_cast<int>(count));
  typename Kind::Type* element = first;
  while (p != end) {
    const Varint varint = ReadVarint(p, end);
    if (varint.next == nullptr) {
      const int read = size + static_cast<int>(element - first);
      field->Truncate(read);
      // As if the elements had been added one by one.
      const int64_t needed = CapacityByDoubling(capacity, read);
      if (needed < field->Capacity()) SetCapacity(needed, field);
      return nullptr;
    }
    *element++ = Kind::FromVarint(varint.value);
    p = varint.next;
  }
  return is_truncated ? nullptr : p;
}

// Reads one unpacked element, and then looks ahead for the field's PACKED tag:
// as long as the field has spare capacity and the tag is not beyond
// InputBounds::EndOfLookAhead, what follows the tag is read as one more
// element. So a packed run directly after an unpacked element is misread: its
// length is read as an element. These classes have always read such bytes so,
// and it is part of their contract (WireRepeated.UnpackedBeforePacked*): do not
// correct it here. Repeated enums do not look ahead.
template <typename Kind, typename Tag>
const uint8_t* ReadUnpackedVarint(const uint8_t* p, const uint8_t* end,
                                  Tag packed_tag, const ParseState& state,
                                  RepeatedField<typename Kind::Type>* field) {
  Varint varint = ReadVarint(p, end);
  if (varint.next == nullptr) return nullptr;
  AddElement(Kind::FromVarint(varint.value), field);
  if (std::is_same<Kind, Enum>::value) return varint.next;
  const InputBounds& bounds = state.bounds;
  int spare = field->Capacity() - field->size();
  while (spare-- > 0 &&
         Peek<Tag>(varint.next, bounds.EndOfLookAhead(varint.next, end)) ==
             packed_tag) {
    varint = ReadVarint(varint.next + RawTagSize(packed_tag), end);
    if (varint.next == nullptr) return nullptr;
    field->AddAlreadyReserved(Kind::FromVarint(varint.value));
  }
  return varint.next;
}

// Reads a packed run of values of fixed size. A length that is not a multiple
// of that size fails before any element is read. A run that is longer than the
// input fails. None of its elements is kept if it is read at once
// (InputBounds::IsReadAtOnce), otherwise those that are there.
template <typename T>
const uint8_t* ReadPackedFixed(const uint8_t* p, const uint8_t* end,
                               const ParseState& state,
                               RepeatedField<T>* field) {
  constexpr ptrdiff_t kValueSize = sizeof(T);
  ptrdiff_t length;
  p = ReadLength(p, end, &length);
  if (p == nullptr || length % kValueSize != 0) return nullptr;
  const ptrdiff_t missing = length - (end - p);
  const bool at_once =
      state.bounds.IsReadAtOnce(state.recursion_budget, missing);
  if (at_once && missing > 0) return nullptr;
  const ptrdiff_t count = std::min(length, end - p) / kValueSize;
  if (count > 0) {
    if (at_once) {
      ReserveAtOnce(count, field);
    } else {
      ReserveByDoubling(count, field);
    }
    T* const first = field->AddNAlreadyReserved(static_cast<int>(count));
    std::memcpy(first, p, static_cast<size_t>(count * kValueSize));
  }
  return missing > 0 ? nullptr : p + length;
}

// As ReadUnpackedVarint, with the same look-ahead.
template <typename Tag, typename T>
const uint8_t* ReadUnpackedFixed(const uint8_t* p, const uint8_t* end,
                                 Tag packed_tag, const ParseState& state,
                                 RepeatedField<T>* field) {
  constexpr ptrdiff_t kValueSize = sizeof(T);
  T element;
  p = ReadFixed(p, end, &element);
  if (p == nullptr) return nullptr;
  AddElement(element, field);
  // Looks ahead for whole elements only: a tag whose value is truncated is left
  // to the parser.
  const int tag_size = RawTagSize(packed_tag);
  const ptrdiff_t available = std::min<ptrdiff_t>(
      field->Capacity() - field->size(),
      (state.bounds.EndOfLookAhead(p, end) - p) / (tag_size + kValueSize));
  for (ptrdiff_t i = 0; i < available && Peek<Tag>(p, end) == packed_tag; ++i) {
    p = ReadFixed(p + tag_size, end, &element);
    field->AddAlreadyReserved(element);
  }
  return p;
}

// The same for floats, out of line.
const uint8_t* ReadPackedFloats(const uint8_t* p, const uint8_t* end,
                                const ParseState& state,
                                RepeatedField<float>* field);

const uint8_t* ReadUnpackedFloat(const uint8_t* p, const uint8_t* end,
                                 RawTag packed_tag, const ParseState& state,
                                 RepeatedField<float>* field);

// Read a repeated field at its packed or its unpacked tag.

// Tag, which only the argument before decides.
template <typename Tag>
using PackedTag = typename std::enable_if<true, Tag>::type;

template <typename Kind, LookAhead kLookAhead = LookAhead::kPackedTag,
          typename Tag>
const uint8_t* ReadRepeatedVarint(
    const uint8_t* p, const uint8_t* end, Tag tag, PackedTag<Tag> packed_tag,
    const ParseState& state,
    google::protobuf::RepeatedField<typename Kind::Type>* field) {
  if (kLookAhead == LookAhead::kNone && tag != packed_tag) {
    const Varint varint = ReadVarint(p, end);
    if (varint.next == nullptr) return nullptr;
    AddElement(Kind::FromVarint(varint.value), field);
    return varint.next;
  }
  return tag == packed_tag
             ? ReadPackedVarints<Kind>(p, end, state, field)
             : ReadUnpackedVarint<Kind>(p, end, packed_tag, state, field);
}

template <LookAhead kLookAhead = LookAhead::kPackedTag, typename Tag,
          typename T>
const uint8_t* ReadRepeatedFixed(const uint8_t* p, const uint8_t* end, Tag tag,
                                 PackedTag<Tag> packed_tag,
                                 const ParseState& state,
                                 google::protobuf::RepeatedField<T>* field) {
  if (kLookAhead == LookAhead::kNone && tag != packed_tag) {
    T element;
    p = ReadFixed(p, end, &element);
    if (p != nullptr) AddElement(element, field);
    return p;
  }
  return tag == packed_tag
             ? ReadPackedFixed(p, end, state, field)
             : ReadUnpackedFixed(p, end, packed_tag, state, field);
}

inline const uint8_t* ReadRepeatedFloat(
    const uint8_t* p, const uint8_t* end, RawTag tag, RawTag packed_tag,
    const ParseState& state, google::protobuf::RepeatedField<float>* field) {
  return tag == packed_tag
             ? ReadPackedFloats(p, end, state, field)
             : ReadUnpackedFloat(p, end, packed_tag, state, field);
}
inline const uint8_t* ReadRepeatedFloat(
    const uint8_t* p, const uint8_t* end, LongRawTag tag, LongRawTag packed_tag,
    const ParseState& state, google::protobuf::RepeatedField<float>* field) {
  return ReadRepeatedFixed(p, end, tag, packed_tag, state, field);
}

}  // namespace internal
}  // namespace vantiro

#endif  // VANTIRO_LIB_INTERNAL_READ_REPEATED_H_
