// How the capacity of repeated fields grows: by the steps of 3.9.1, which are
// not those of the runtime at hand. The capacity of repeated scalars decides
// how far a parse looks ahead (ReadUnpackedVarint), and so what some input
// means. All code of the classes that adds elements uses these functions.
//
// Installed with the emitted headers, whose inline accessors use it.

#ifndef VANTIRO_LIB_INTERNAL_REPEATED_CAPACITY_H_
#define VANTIRO_LIB_INTERNAL_REPEATED_CAPACITY_H_

#include <google/protobuf/repeated_field.h>

#include <algorithm>
#include <cstdint>
#include <limits>

namespace vantiro {
namespace internal {

using google::protobuf::RepeatedField;

constexpr int kMinCapacity = 4;

// The next capacity after `capacity`.
inline int64_t NextCapacity(int64_t capacity) {
  return std::max<int64_t>(kMinCapacity, capacity * 2);
}

// Gives `field` the capacity `capacity`, which has to suffice for its elements.
// RepeatedField::Reserve gives no more than it is asked for only to a field
// without capacity. The runtime's functions are inlined here: otherwise each is
// a call through the PLT.
template <typename T>
__attribute__((flatten, noinline)) void SetCapacity(int64_t capacity,
                                                    RepeatedField<T>* field) {
  const auto count = static_cast<int>(
      std::min<int64_t>(capacity, std::numeric_limits<int>::max()));
  if (field->Capacity() == 0) {
    field->Reserve(count);
    return;
  }
  RepeatedField<T> resized(field->GetArena());
  resized.Reserve(count);
  const int size = field->size();
  std::copy_n(field->data(), size, resized.AddNAlreadyReserved(size));
  field->InternalSwap(&resized);
}

// Reserves space for `count` more elements that are added together.
template <typename T>
inline void ReserveAtOnce(int64_t count, RepeatedField<T>* field) {
  const int64_t capacity = field->Capacity();
  const int64_t size = field->size() + count;
  if (size <= capacity) return;
  SetCapacity(std::max(NextCapacity(capacity), size), field);
}

// The capacity that `capacity` becomes if elements are added one by one until
// there are `size`.
inline int64_t CapacityByDoubling(int64_t capacity, int64_t size) {
  while (capacity < size) capacity = NextCapacity(capacity);
  return capacity;
}

// Reserves space for `count` more elements as if they were added one by one.
template <typename T>
inline void ReserveByDoubling(int64_t count, RepeatedField<T>* field) {
  const int64_t size = field->size() + count;
  if (size <= field->Capacity()) return;
  SetCapacity(CapacityByDoubling(field->Capacity(), size), field);
}

// To be called when `field` is full. Out of line, since AddElement is inline.
template <typename T>
__attribute__((noinline)) void GrowForOneMore(RepeatedField<T>* field) {
  if (field->Capacity() == 0) return field->Reserve(kMinCapacity);
  SetCapacity(NextCapacity(field->Capacity()), field);
}

template <typename T>
inline void AddElement(typename RepeatedField<T>::value_type element,
                       RepeatedField<T>* field) {
  if (field->size() == field->Capacity()) GrowForOneMore(field);
  field->AddAlreadyReserved(element);
}

// Adds the elements of another field.
template <typename T>
inline void AddElements(const RepeatedField<T>& from, RepeatedField<T>* field) {
  const int size = from.size();
  if (size == 0) return;
  if (field->Capacity() == 0) {
    field->Reserve(std::max(size, kMinCapacity));
  } else {
    ReserveAtOnce(size, field);
  }
  std::copy_n(from.data(), size, field->AddNAlreadyReserved(size));
}

// Adds an element to a repeated field of messages. Its capacity has no effect
// on what is read: only its first step is that of 3.9.1.
template <typename T>
inline T* AddMessage(google::protobuf::RepeatedPtrField<T>* field) {
  if (field->Capacity() == 0) field->Reserve(kMinCapacity);
  return field->Add();
}

}  // namespace internal
}  // namespace vantiro

#endif  // VANTIRO_LIB_INTERNAL_REPEATED_CAPACITY_H_
