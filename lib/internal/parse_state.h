// What one parse carries along beside its position.

#ifndef VANTIRO_LIB_INTERNAL_PARSE_STATE_H_
#define VANTIRO_LIB_INTERNAL_PARSE_STATE_H_

#include <google/protobuf/message_lite.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "internal/flattened_input.h"

namespace vantiro {
namespace internal {

struct ParseState {
  explicit ParseState(int budget)
      : recursion_budget(budget), root_budget(budget), open_budget(budget) {}

  bool in_root() const { return recursion_budget == root_budget; }

  // How far the input is at hand at `p`: to the end of the block of the stream
  // that `p` lies in, or to `end` if the input came in one piece.
  const uint8_t* AtHand(const uint8_t* p, const uint8_t* end) const {
    return blocks == nullptr ? end : std::min(end, blocks->EndOfBlock(p));
  }

  // Notes that the sub-message to be read claims `count` bytes more than the
  // message around it has left. The parse fails whatever it holds; only what is
  // kept of it can depend on its claim, and only where nothing else limits the
  // input: neither the stream nor a message that is there as a whole.
  void EnterCut(ptrdiff_t count) {
    if (blocks == nullptr || !blocks->is_open_ended) return;
    if (recursion_budget + 1 != open_budget) return;
    missing = missing == 0 ? count : std::min(missing, count);
    open_budget = recursion_budget;
  }

  // Whether `count` bytes that the input lacks are within what the message
  // claims.
  bool Claims(ptrdiff_t count) const {
    return recursion_budget == open_budget && count <= missing;
  }

  // Levels of nesting that may still be entered.
  int recursion_budget;
  const int root_budget;
  // The root's parse ended before its input did: at a tag of value 0, or at a
  // tag that the end of the input cuts off. The parser then returns the
  // position of that tag.
  bool ended_at_bad_tag = false;
  // The recursion budget in the innermost message that the end of the input
  // cuts off, and how many bytes it claims beyond (EnterCut).
  int open_budget;
  ptrdiff_t missing = 0;
  // Where the input came from, if it was gathered from the blocks of a stream.
  const GatheredBlocks* blocks = nullptr;
};

// The parser of one class: reads fields from [p, end) into `message`, which is
// of that class. Returns `end`; or, in the root, the position of the tag that
// ended the parse (`ParseState::ended_at_bad_tag`); or null on failure.
// Nothing is read outside [p, end), and what was read before a failure stays in
// the message.
using FlatParser = const uint8_t* (*)(google::protobuf::MessageLite* message,
                                      const uint8_t* p, const uint8_t* end,
                                      ParseState* state);

}  // namespace internal
}  // namespace vantiro

#endif  // VANTIRO_LIB_INTERNAL_PARSE_STATE_H_
