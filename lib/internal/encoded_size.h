// The encoded sizes of scalars, of several fields at a time and without
// branches.
//
// In a class's struct of scalars the fields of one kind are adjacent, in the
// order of their numbers, so that those with tags of one byte come first. One
// operation gives the sizes of eight of them, whatever their values.

#ifndef VANTIRO_LIB_INTERNAL_ENCODED_SIZE_H_
#define VANTIRO_LIB_INTERNAL_ENCODED_SIZE_H_

#include <google/protobuf/generated_message_util.h>
#include <google/protobuf/message_lite.h>
#include <google/protobuf/repeated_field.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <type_traits>
#include <utility>

#include "internal/four.h"

namespace vantiro {
namespace internal {

using google::protobuf::internal::WireFormatLite;

// The functions here load up to 12 bytes of an object that are before its
// scalars.
static_assert(sizeof(google::protobuf::MessageLite) >= 12,
              "the base class is before the scalars");

// The kinds of 32 bits that are written as varints. An element of Exponents is
// set by its highest bit; what is above kMaxExponent is counted as that.
struct UInt32Sizes {
  static constexpr int16_t kMaxExponent = 127 + 31;
  __attribute__((always_inline)) static Four ToVarints(Four values) {
    return values;
  }
};
// Also for enums. A negative value is sign-extended to 64 bits and takes ten
// bytes: as many as if its highest bit were this one.
struct Int32Sizes : UInt32Sizes {
  static constexpr int16_t kMaxExponent = 127 + 63;
};
struct SInt32Sizes : UInt32Sizes {
  __attribute__((always_inline)) static Four ToVarints(Four values) {
    return values << 1 ^ IsNegative(values);
  }
};
// Not a varint. A value that compares equal to 0.0 is not written: also -0.0,
// but a NaN is.
struct FloatSizes {};

// What EncodedSizes adds for a value that is not counted.
constexpr int16_t kNotCounted = -0x4000;

// What EncodedSizes adds for a varint with a tag: the size is
// (9 * highest bit + 73) / 64, as the runtime counts.
constexpr int16_t SizeBias(int tag_size) {
  return static_cast<int16_t>(64 * tag_size + 73 - 9 * 127);
}

// The sizes of varints that are not zero, and 0 for a zero.
template <typename Kind>
__attribute__((always_inline)) inline Eight EncodedSizes(Eight exponents,
                                                         Eight biases) {
  constexpr int16_t kMax = Kind::kMaxExponent;
  constexpr Eight kMaxExponents = {kMax, kMax, kMax, kMax,
                                   kMax, kMax, kMax, kMax};
  return Max(Min(exponents, kMaxExponents) * 9 + biases, Eight{}) >> 6;
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
    if constexpr (kCount > kMaxCount) {
      constexpr int kOneByte = std::min(kOneByteTags, kMaxCount);
      constexpr int kTwoByte = kMaxCount - kOneByte;
      Add<Kind, kOneByte, kTwoByte>(begin);
      float_sizes_ = float_sizes_ + AddPairs(varint_sizes_);
      varint_sizes_ = Eight{};
      Add<Kind, kOneByteTags - kOneByte, kTwoByteTags - kTwoByte>(
          begin + ptrdiff_t{4} * kMaxCount);
    } else if constexpr (std::is_same<Kind, FloatSizes>::value) {
      AddFloats<kCount, kOneByteTags>(
          begin, std::make_integer_sequence<int, (kCount + 3) / 4>());
    } else {
      AddVarints<Kind, kCount, kOneByteTags>(
          begin, std::make_integer_sequence<int, (kCount + 7) / 8>());
    }
  }

  size_t Total() const { return Sum(float_sizes_ + AddPairs(varint_sizes_)); }

 private:
  // The most fields that are added at once: sums of their sizes have 16 bits.
  static constexpr int kMaxCount = 1024;

  // Where the fours of `count` fields begin: the last one ends with the last
  // field.
  static constexpr int Start(int four, int count) {
    return 4 * four + 4 <= count ? 4 * four : count - 4;
  }
  // The tag size of a field; 0 if it belongs to the four before, or if there is
  // no such field.
  static constexpr int TagSize(int four, int i, int count, int one_byte_tags) {
    const int field = Start(four, count) + i;
    return field < 4 * four || 4 * four >= count ? 0
           : field < one_byte_tags               ? 1
                                                 : 2;
  }
  static constexpr uint16_t Bias(int tag_size) {
    return static_cast<uint16_t>(tag_size == 0 ? kNotCounted
                                               : SizeBias(tag_size));
  }
  static constexpr Four Biases(int four, int count, int one_byte_tags) {
    return Four{Bias(TagSize(four, 0, count, one_byte_tags)),
                Bias(TagSize(four, 1, count, one_byte_tags)),
                Bias(TagSize(four, 2, count, one_byte_tags)),
                Bias(TagSize(four, 3, count, one_byte_tags))};
  }

  template <typename Kind, int kCount, int kOneByteTags, int... kIndex>
  __attribute__((always_inline)) void AddVarints(
      const char* begin, std::integer_sequence<int, kIndex...> /*indices*/) {
    ((varint_sizes_ =
          varint_sizes_ +
          EncodedSizes<Kind>(
              Join(LoadExponents<Kind, kCount>(begin, 2 * kIndex),
                   LoadExponents<Kind, kCount>(begin, 2 * kIndex + 1)),
              Join(Biases(2 * kIndex, kCount, kOneByteTags),
                   Biases(2 * kIndex + 1, kCount, kOneByteTags)))),
     ...);
  }

  template <typename Kind, int kCount>
  __attribute__((always_inline)) static Four LoadExponents(const char* begin,
                                                           int four) {
    if (4 * four >= kCount) return Four{};
    return Exponents(
        Kind::ToVarints(LoadFour(begin + ptrdiff_t{4} * Start(four, kCount))));
  }

  template <int kCount, int kOneByteTags, int... kIndex>
  __attribute__((always_inline)) void AddFloats(
      const char* begin, std::integer_sequence<int, kIndex...> /*indices*/) {
    ((float_sizes_ =
          float_sizes_ +
          (FloatFieldSizes(kIndex, kCount, kOneByteTags) &
           ~IsZero(LoadFour(begin + ptrdiff_t{4} * Start(kIndex, kCount))
                   << 1))),
     ...);
  }
  static constexpr uint32_t FloatFieldSize(int tag_size) {
    return tag_size == 0 ? 0 : static_cast<uint32_t>(tag_size) + 4;
  }
  static constexpr Four FloatFieldSizes(int four, int count,
                                        int one_byte_tags) {
    return Four{FloatFieldSize(TagSize(four, 0, count, one_byte_tags)),
                FloatFieldSize(TagSize(four, 1, count, one_byte_tags)),
                FloatFieldSize(TagSize(four, 2, count, one_byte_tags)),
                FloatFieldSize(TagSize(four, 3, count, one_byte_tags))};
  }

  // Also what was moved from the sums of 16 bits.
  Four float_sizes_ = {};
  Eight varint_sizes_ = {};
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

template <size_t kTagSize>
size_t RepeatedStringSize(
    const google::protobuf::RepeatedPtrField<std::string>& field) {
  size_t size = 0;
  for (const std::string& element : field) {
    size += StringSize<kTagSize>(element);
  }
  return size;
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
template <typename T>
size_t FixedPayloadSize(const google::protobuf::RepeatedField<T>& field) {
  return sizeof(T) * static_cast<size_t>(field.size());
}
inline size_t FloatPayloadSize(
    const google::protobuf::RepeatedField<float>& field) {
  return FixedPayloadSize(field);
}
inline size_t BoolPayloadSize(
    const google::protobuf::RepeatedField<bool>& field) {
  return static_cast<size_t>(field.size());
}

}  // namespace internal
}  // namespace vantiro

#endif  // VANTIRO_LIB_INTERNAL_ENCODED_SIZE_H_
