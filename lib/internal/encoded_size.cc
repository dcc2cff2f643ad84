#include "internal/encoded_size.h"

namespace vantiro {
namespace internal {
namespace {

using google::protobuf::RepeatedField;

// The most elements that are added up at once: their sum has to be below 2^32,
// and an element takes ten bytes at most.
constexpr int kMaxCount = 1 << 28;

template <typename Kind, typename T>
size_t SizeOfFoursAndRest(const T* elements, int count) {
  Four total = {};
  for (int i = 0; i + 4 <= count; i += 4) {
    total = total + ElementSizes<Kind>(LoadFour(elements + i));
  }
  // The last four, without those that have been counted.
  static constexpr uint32_t kIsLeft[] = {0, 0, 0, 0, ~0U, ~0U, ~0U};
  total = total + (ElementSizes<Kind>(LoadFour(elements + count - 4)) &
                   LoadFour(kIsLeft + count % 4));
  return Sum(total);
}

template <typename Kind, typename T>
size_t SizeOfFew(const T* elements, int count) {
  uint32_t four[4] = {};
  for (int i = 0; i < count; ++i) four[i] = static_cast<uint32_t>(elements[i]);
  // The missing ones are counted as zeros of one byte each.
  return Sum(ElementSizes<Kind>(LoadFour(four))) -
         static_cast<size_t>(4 - count);
}

template <typename Kind, typename T>
size_t PayloadSize(const RepeatedField<T>& field) {
  const T* elements = field.data();
  int count = field.size();
  size_t size = 0;
  for (; count > kMaxCount; count -= kMaxCount, elements += kMaxCount) {
    size += SizeOfFoursAndRest<Kind>(elements, kMaxCount);
  }
  return size + (count < 4 ? SizeOfFew<Kind>(elements, count)
                           : SizeOfFoursAndRest<Kind>(elements, count));
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
