// What the parsers have to know about the end of their input.

#ifndef VANTIRO_LIB_INTERNAL_INPUT_BOUNDS_H_
#define VANTIRO_LIB_INTERNAL_INPUT_BOUNDS_H_

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "internal/flattened_input.h"

namespace vantiro {
namespace internal {

// The parsers read flat memory. The parsers of 3.9.1 read from a stream, and
// two of their results depend on how the stream gives its bytes. Both results
// are part of the contract. Both concern repeated scalars only. This class
// alone knows the rules:
//
// - After an unpacked element the parser looks ahead to the end of the current
//   chunk of the stream (EndOfLookAhead).
// - A packed run of floats is read at once if the nearest limit allows for its
//   length (IsReadAtOnce). Then space is reserved at once, and if the input
//   truncates the run, none of its elements is kept. Otherwise the elements are
//   read one by one: the capacity doubles, and those that are there are kept.
//
//   The end of each message around the run is a limit, and so are the limits of
//   the stream, but its total bytes limit alone is none for the root message.
//   For input in one piece its end is a limit. The nearest one may allow for
//   more bytes than there are: a message around the run may be longer than the
//   input, and a stream may end before its limit.
//
// A message is identified by the recursion budget that is left within it.
class InputBounds {
 public:
  // For input in one piece if `flattened` is null. `root_budget` is the
  // recursion budget in the root message.
  InputBounds(int root_budget, const FlattenedInput* flattened)
      : flattened_(flattened),
        root_budget_(root_budget),
        truncated_budget_(root_budget),
        missing_(flattened == nullptr ? 0 : flattened->missing) {}

  // How far the parser may look ahead from `p`, which is after at least one
  // byte of the input. `end` is the end of the message.
  const uint8_t* EndOfLookAhead(const uint8_t* p, const uint8_t* end) const {
    if (flattened_ == nullptr) return end;
    return std::min(end, flattened_->EndOfChunk(p));
  }

  // To be called before reading a sub-message whose length exceeds the message
  // around it by `missing` bytes. `budget` is that within the sub-message.
  void EnterTruncatedMessage(int budget, ptrdiff_t missing) {
    // A message around it that is there as a whole is the nearest limit.
    if (budget + 1 != truncated_budget_) return;
    missing_ = std::min(missing_, missing);
    truncated_budget_ = budget;
  }

  // Whether a packed run of floats is read at once. `missing` is by how many
  // bytes its length exceeds the message around it, 0 or less if it fits.
  bool IsReadAtOnce(int budget, ptrdiff_t missing) const {
    const bool is_in_root = budget == root_budget_;
    if (is_in_root && flattened_ != nullptr && !flattened_->has_limit) {
      return false;
    }
    return missing <= (budget == truncated_budget_ ? missing_ : 0);
  }

 private:
  const FlattenedInput* const flattened_;
  const int root_budget_;
  // The innermost message that the end of the input truncates, at first the
  // root message.
  int truncated_budget_;
  // How many bytes are missing up to the nearest limit of this message.
  ptrdiff_t missing_;
};

}  // namespace internal
}  // namespace vantiro

#endif  // VANTIRO_LIB_INTERNAL_INPUT_BOUNDS_H_
