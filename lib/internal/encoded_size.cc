#include "internal/encoded_size.h"

namespace vantiro {
namespace internal {
namespace {

using google::protobuf::RepeatedField;

// The most elements that are added up at once: their sum has to be below 2^16,
// and an element takes ten bytes at most.
constexpr int kMaxCount = 1 << 12;

// The exponents of four elements of a packed field. A zero takes one byte. To
// set the lowest bit of another value does not change its size.
template <typename Kind>
__attribute__((always_inline)) inline Four ElementExponents(
    const void* elements) {
  return Exponents(Kind::ToVarints(LoadFour(elements)) | Four{1, 1, 1, 1});
}

// The biases of four elements, the last `count` of which are counted.
inline Four LastBiases(int count) {
  static constexpr uint32_t kNot = static_cast<uint16_t>(kNotCounted);
  static constexpr uint32_t kYes = static_cast<uint16_t>(SizeBias(0));
  static constexpr uint32_t kBiases[] = {kNot, kNot, kNot, kNot,
                                         kYes, kYes, kYes, kYes};
  return LoadFour(kBiases + count);
}

// The sizes of four elements and of the last `count` of four others.
template <typename Kind, typename T>
__attribute__((always_inline)) inline Eight ElementSizes(const T* four,
                                                         const T* last,
                                                         int count) {
  return EncodedSizes<Kind>(
      Join(ElementExponents<Kind>(four), ElementExponents<Kind>(last)),
      Join(LastBiases(4), LastBiases(count)));
}

// The sizes of the last `count` of four elements.
template <typename Kind, typename T>
__attribute__((always_inline)) inline Eight LastSizes(const T* last,
                                                      int count) {
  return EncodedSizes<Kind>(Join(ElementExponents<Kind>(last), Four{}),
                            Join(LastBiases(count), LastBiases(0)));
}

// Of four elements up to kMaxCount.
template <typename Kind, typename T>
__attribute__((always_inline)) inline size_t SizeOfMany(const T* elements,
                                                        int count) {
  Eight total = {};
  const T* const last = elements + count - 4;
  for (; count > 8; count -= 8, elements += 8) {
    total = total + ElementSizes<Kind>(elements, elements + 4, 4);
  }
  return Sum(total + (count > 4 ? ElementSizes<Kind>(elements, last, count - 4)
                                : LastSizes<Kind>(last, count)));
}

template <typename Kind, typename T>
__attribute__((noinline, cold)) size_t SizeOfVeryMany(const T* elements,
                                                      int count) {
  size_t size = 0;
  for (; count >= kMaxCount; count -= kMaxCount / 2) {
    size += SizeOfMany<Kind>(elements, kMaxCount / 2);
    elements += kMaxCount / 2;
  }
  return size + SizeOfMany<Kind>(elements, count);
}

template <typename Kind, typename T>
size_t PayloadSize(const RepeatedField<T>& field) {
  const T* const elements = field.data();
  const int count = field.size();
  if (count >= 4) {
    return __builtin_expect(count < kMaxCount, true)
               ? SizeOfMany<Kind>(elements, count)
               : SizeOfVeryMany<Kind>(elements, count);
  }
  T four[4] = {};
  for (int i = 0; i < count; ++i) four[4 - count + i] = elements[i];
  return Sum(LastSizes<Kind>(four, count));
}

}  // namespace

size_t UInt32PayloadSize(const RepeatedField<uint32_t>& field) {
  return PayloadSize<UInt32Sizes>(field);
}

size_t SInt32PayloadSize(const RepeatedField<int32_t>& field) {
  return PayloadSize<SInt32Sizes>(field);
}

size_t Int32PayloadSize(const RepeatedField<int32_t>& field) {
  return PayloadSize<Int32Sizes>(field);
}

}  // namespace internal
}  // namespace vantiro
