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
// - A packed run of floats may be longer than the input. If the nearest limit
//   allows for its length, it is read at once: this fails, and none of its
//   elements is kept. Otherwise the elements are read one by one, and those
//   that are there are kept (KeepsTruncatedRun).
//
//   The end of each message around the run is a limit, and so is the end of the
//   input if it is known beforehand: for input in one piece, and for a stream
//   with a limit. Then no limit allows for more than there is. But without a
//   known end, a message around the run may itself be longer than the input,
//   and allow for the run.
//
// A message is identified by the recursion budget that is left within it.
class InputBounds {
 public:
  // For input in one piece if `flattened` is null. `root_budget` is the
  // recursion budget in the root message.
  InputBounds(int root_budget, const FlattenedInput* flattened)
      : flattened_(flattened), truncated_budget_(root_budget) {}

  // How far the parser may look ahead from `p`, which is after at least one
  // byte of the input. `end` is the end of the message.
  const uint8_t* EndOfLookAhead(const uint8_t* p, const uint8_t* end) const {
    if (flattened_ == nullptr) return end;
    return std::min(end, flattened_->EndOfChunk(p));
  }

  // To be called before reading a sub-message whose length exceeds the message
  // around it by `missing` bytes. `budget` is that within the sub-message.
  void EnterTruncatedMessage(int budget, ptrdiff_t missing) {
    if (flattened_ == nullptr || flattened_->has_limit) return;
    // A message around it that is there as a whole is the nearest limit.
    if (budget + 1 != truncated_budget_) return;
    missing_ = missing_ == 0 ? missing : std::min(missing_, missing);
    truncated_budget_ = budget;
  }

  // Whether those elements are kept that are there, of a packed run of floats
  // whose length exceeds the message around it by `missing` bytes.
  bool KeepsTruncatedRun(int budget, ptrdiff_t missing) const {
    return budget != truncated_budget_ || missing > missing_;
  }

 private:
  const FlattenedInput* const flattened_;
  // The innermost message that the end of the input truncates, at first the
  // root message.
  int truncated_budget_;
  // How many bytes are missing up to the nearest limit. 0 in the root message,
  // which has no length.
  ptrdiff_t missing_ = 0;
};

}  // namespace internal
}  // namespace vantiro

#endif  // VANTIRO_LIB_INTERNAL_INPUT_BOUNDS_H_
