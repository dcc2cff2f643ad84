// What the parsers have to know about the end of their input.

#ifndef VANTIRO_LIB_INTERNAL_INPUT_BOUNDS_H_
#define VANTIRO_LIB_INTERNAL_INPUT_BOUNDS_H_

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "internal/flattened_input.h"

namespace vantiro {
namespace internal {

// The parsers read flat memory. The parsers of 3.9.1 read from the stream, so
// that two of their results depend on how the stream gives its bytes. Both
// results are part of the contract, both only concern repeated scalars, and
// this class alone knows when they apply:
//
// - After an unpacked element, the parser looks ahead only as far as the
// current
//   chunk of the stream (EndOfLookAhead).
// - A packed run of floats may be longer than the input. If the nearest limit
//   allows for its length, it is read at once, which fails, and none of its
//   elements is kept. Otherwise they are read one by one, and those that are
//   there are kept (KeepsTruncatedRun). A limit is the end of the input, if it
//   is known beforehand, and the end of each message around the run. The end of
//   the input is known for input in one piece and for a stream with a limit:
//   then no limit allows for more than the input has. Otherwise only the
//   messages limit the run, and a message may itself be longer than the input.
//
// A message is identified by the recursion budget that is left within it.
class InputBounds {
 public:
  // Of input in one piece if `flattened` is null. `root_budget` is the
  // recursion budget of the whole parse.
  InputBounds(int root_budget, const FlattenedInput* flattened)
      : flattened_(flattened), truncated_budget_(root_budget) {}

  // The end of what may be looked at ahead of `p`, which is not at the begin of
  // the input. `end` is the end of the message at `p`.
  const uint8_t* EndOfLookAhead(const uint8_t* p, const uint8_t* end) const {
    if (flattened_ == nullptr) return end;
    return std::min(end, flattened_->EndOfChunk(p));
  }

  // To be called before a sub-message is read whose length exceeds the end of
  // the message around it by `missing` bytes.
  void EnterTruncatedMessage(int budget, ptrdiff_t missing) {
    if (flattened_ == nullptr || flattened_->has_limit) return;
    // Within a message that is there as a whole, that message is the limit.
    if (budget + 1 != truncated_budget_) return;
    missing_ = missing_ == 0 ? missing : std::min(missing_, missing);
    truncated_budget_ = budget;
  }

  // Whether the whole elements that are there are kept of a packed run of
  // floats whose length exceeds the end of the message around it by `missing`
  // bytes.
  bool KeepsTruncatedRun(int budget, ptrdiff_t missing) const {
    return budget != truncated_budget_ || missing > missing_;
  }

 private:
  const FlattenedInput* const flattened_;
  // The innermost message that the end of the input truncates, or the root.
  int truncated_budget_;
  // How many bytes are missing up to the nearest end of a truncated message. 0
  // in the root, which has no length.
  ptrdiff_t missing_ = 0;
};

}  // namespace internal
}  // namespace vantiro

#endif  // VANTIRO_LIB_INTERNAL_INPUT_BOUNDS_H_
