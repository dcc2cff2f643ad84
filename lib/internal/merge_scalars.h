// Merging scalars: what would not be written is not merged.

#ifndef VANTIRO_LIB_INTERNAL_MERGE_SCALARS_H_
#define VANTIRO_LIB_INTERNAL_MERGE_SCALARS_H_

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <type_traits>

#include "internal/four.h"
#include "internal/write_scalar.h"

namespace vantiro {
namespace internal {

// Merges a field whose value in the other message is `value`.
template <typename T>
void MergeScalar(T value, T* field) {
  if (IsNonZero(value)) *field = value;
}

// The same for `kCount` adjacent fields of one type of 32 bits, the first of
// which are at `from` and `to`.
template <int kCount, typename T>
__attribute__((always_inline)) inline void MergeScalars(const T* from, T* to) {
  static_assert(sizeof(T) == sizeof(uint32_t), "four of them are a Four");
  if (kCount < 4) {
    for (int i = 0; i < kCount; ++i) MergeScalar(from[i], to + i);
    return;
  }
  for (int i = 0; i < kCount; i += 4) {
    // The last four overlap those before them if kCount is no multiple of 4.
    const int first = std::min(i, kCount - 4);
    const Four values = LoadFour(from + first);
    // The sign of a float does not count.
    const Four is_zero =
        IsZero(std::is_same<T, float>::value ? values << 1 : values);
    const Four merged = (values & ~is_zero) | (LoadFour(to + first) & is_zero);
    std::memcpy(to + first, &merged, sizeof(merged));
  }
}

template <int kCount>
void MergeScalars(const bool* from, bool* to) {
  for (int i = 0; i < kCount; ++i) to[i] |= from[i];
}

}  // namespace internal
}  // namespace vantiro

#endif  // VANTIRO_LIB_INTERNAL_MERGE_SCALARS_H_
