// The encoded sizes of scalars, of several fields at a time and without
// branches.
//
// In a class's struct of scalars the fields of one kind are adjacent, in the
// order of their numbers, so that those with tags of one byte come first. One
// operation gives the sizes of four of them, whatever their values.

#ifndef VANTIRO_LIB_INTERNAL_ENCODED_SIZE_H_
#define VANTIRO_LIB_INTERNAL_ENCODED_SIZE_H_

#include <google/protobuf/generated_message_util.h>
#include <google/protobuf/message_lite.h>
#include <google/protobuf/repeated_field.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <utility>

#include "internal/four.h"

namespace vantiro {
namespace internal {

using google::protobuf::internal::WireFormatLite;

// The functions here load up to 12 bytes of an object that are before its
// scalars.
static_assert(sizeof(google::protobuf::MessageLite) >= 12,
              "the base class is before the scalars");

// The kinds of 32 bits: the sizes of values with their tags, which may be
// anything for values that are zero; and which values are not written.
struct UInt32Sizes {
  __attribute__((always_inline)) static Four Sizes(Four values,
                                                   Four tag_sizes) {
    return VarintSizes(values, tag_sizes);
  }
  __attribute__((always_inline)) static Four IsSkipped(Four values) {
    return IsZero(values);
  }
};
// Also for enums. A negative value is sign-extended to 64 bits and takes ten
// bytes.
struct Int32Sizes : UInt32Sizes {
  __attribute__((always_inline)) static Four Sizes(Four values,
                                                   Four tag_sizes) {
    return VarintSizes(values, tag_sizes) +
           (IsNegative(values) & Four{5, 5, 5, 5});
  }
};
struct SInt32Sizes : UInt32Sizes {
  __attribute__((always_inline)) static Four Sizes(Four values,
                                                   Four tag_sizes) {
    return VarintSizes(values << 1 ^ IsNegative(values), tag_sizes);
  }
};
// A value that compares equal to 0.0 is skipped: also -0.0, but no NaN.
struct FloatSizes {
  __attribute__((always_inline)) static Four Sizes(Four /*values*/,
                                                   Four tag_sizes) {
    return tag_sizes + Four{4, 4, 4, 4};
  }
  __attribute__((always_inline)) static Four IsSkipped(Four values) {
    return IsZero(values << 1);
  }
};

// The sizes of elements of a packed field, zeros included. To set the lowest
// bit of another value does not change its size in any kind.
template <typename Kind>
__attribute__((always_inline)) inline Four ElementSizes(Four values) {
  return Kind::Sizes(values | Four{1, 1, 1, 1}, Four{});
}

// Adds up the sizes of a message's fields with their tags.
class FieldSizes {
 public:
  // Adds fields of one kind, from `first` on: first `kOneByteTags`, then
  // `kTwoByteTags` of them. If fewer than four are left, the bytes of the
  // object before them are loaded too, but not added.
  template <typename Kind, int kOneByteTags, int kTwoByteTags>
  __attribute__((always_inline)) void Add(const void* first) {
    constexpr int kCount = kOneByteTags + kTwoByteTags;
    const auto* const begin = static_cast<const char*>(first);
    AddFours<Kind, kOneByteTags>(begin,
                                 std::make_integer_sequence<int, kCount / 4>());
    if (kCount % 4 != 0) {
      AddFour<Kind>(begin + ptrdiff_t{4} * (kCount - 4),
                    TagSizes(kCount - 4, kOneByteTags, 4 - kCount % 4));
    }
  }

  size_t Total() const { return Sum(total_); }

 private:
  // The tag sizes of four fields, 0 for the first `skipped` ones.
  static constexpr Four TagSizes(int start, int one_byte_tags, int skipped) {
    return Four{TagSize(start, one_byte_tags, skipped, 0),
                TagSize(start, one_byte_tags, skipped, 1),
                TagSize(start, one_byte_tags, skipped, 2),
                TagSize(start, one_byte_tags, skipped, 3)};
  }
  static constexpr uint32_t TagSize(int start, int one_byte_tags, int skipped,
                                    int i) {
    return i < skipped ? 0 : start + i < one_byte_tags ? 1 : 2;
  }

  template <typename Kind, int kOneByteTags, int... kIndex>
  __attribute__((always_inline)) void AddFours(
      const char* begin, std::integer_sequence<int, kIndex...> /*indices*/) {
    (AddFour<Kind>(begin + ptrdiff_t{16} * kIndex,
                   TagSizes(4 * kIndex, kOneByteTags, 0)),
     ...);
  }

  template <typename Kind>
  __attribute__((always_inline)) void AddFour(const char* p, Four tag_sizes) {
    const Four values = LoadFour(p);
    total_ = total_ + (Kind::Sizes(values, tag_sizes) &
                       ~(Kind::IsSkipped(values) | IsZero(tag_sizes)));
  }

  Four total_ = {};
};

// The size of adjacent bools from `first` on with their tags. Up to seven bytes
// of the object before them are loaded, but not added.
template <int kOneByteTags, int kTwoByteTags>
__attribute__((always_inline)) inline size_t BoolFieldsSize(const bool* first) {
  constexpr int kCount = kOneByteTags + kTwoByteTags;
  constexpr uint64_t kOnes = 0x0101010101010101;
  const auto* const begin = reinterpret_cast<const char*>(first);
  size_t size = 0;
  for (int i = 0; i < kCount; i += 8) {
    // Eight bytes that end with the last of these bools. What is before these
    // is shifted out.
    const int count = kCount - i < 8 ? kCount - i : 8;
    uint64_t bools;
    std::memcpy(&bools, begin + i + count - 8, sizeof(bools));
    bools >>= 8 * (8 - count);
    const int one_byte_tags = kOneByteTags - i;
    const uint64_t two_byte_tags = one_byte_tags <= 0 ? kOnes
                                   : one_byte_tags >= 8
                                       ? 0
                                       : kOnes << (8 * one_byte_tags);
    size += (bools * 2 + (bools & two_byte_tags)) * kOnes >> 56;
  }
  return size;
}

// The size of a sub-message, a string or a packed run with its length.
__attribute__((always_inline)) inline size_t WithLength(size_t size) {
  if (__builtin_expect_with_probability(size < 0x80, 1, 0.6)) return size + 1;
  if (size < 0x4000) return size + 2;
  return size + (size < 0x200000 ? 3 : size < 0x10000000 ? 4 : 5);
}

// The same with the tag.

template <size_t kTagSize>
__attribute__((always_inline)) inline size_t StringSize(
    const std::string& value) {
  return kTagSize + WithLength(value.size());
}

// 0 for an absent message.
template <size_t kTagSize, typename T>
__attribute__((always_inline)) inline size_t MessageSize(const T* message) {
  return message == nullptr ? 0
                            : kTagSize + WithLength(message->ByteSizeLong());
}

template <size_t kTagSize, typename T>
size_t RepeatedMessageSize(const google::protobuf::RepeatedPtrField<T>& field) {
  size_t size = 0;
  for (const T& element : field) size += MessageSize<kTagSize>(&element);
  return size;
}

// Stores the size of the payload for the writer.
template <size_t kTagSize>
__attribute__((always_inline)) inline size_t PackedSize(
    size_t payload_size, google::protobuf::internal::CachedSize* cached_size) {
  cached_size->Set(static_cast<int>(payload_size));
  return payload_size == 0 ? 0 : kTagSize + WithLength(payload_size);
}

// The sizes of packed runs without their lengths.
size_t UInt32PayloadSize(
    const google::protobuf::RepeatedField<uint32_t>& field);
size_t SInt32PayloadSize(const google::protobuf::RepeatedField<int32_t>& field);
size_t Int32PayloadSize(const google::protobuf::RepeatedField<int32_t>& field);
inline size_t FloatPayloadSize(
    const google::protobuf::RepeatedField<float>& field) {
  return sizeof(float) * static_cast<size_t>(field.size());
}
inline size_t BoolPayloadSize(
    const google::protobuf::RepeatedField<bool>& field) {
  return static_cast<size_t>(field.size());
}

}  // namespace internal
}  // namespace vantiro

#endif  // VANTIRO_LIB_INTERNAL_ENCODED_SIZE_H_
