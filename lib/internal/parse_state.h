// The state of one parse besides its position.

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

  // How far the input is at hand at `p`: to the end of the chunk of the stream
  // that `p` lies in, or to `end` if the input came in one piece.
  const uint8_t* EndOfLookAhead(const uint8_t* p, const uint8_t* end) const {
    return flattened == nullptr ? end : std::min(end, flattened->EndOfChunk(p));
  }

  // Notes that the sub-message to be read claims `count` bytes more than the
  // message around it has left. The parse fails whatever it holds; only what is
  // kept of it can depend on its claim, and only where nothing else limits the
  // input: neither the stream nor a message that is there as a whole.
  void EnterTruncatedMessage(ptrdiff_t count) {
    if (flattened == nullptr || !flattened->is_open_ended) return;
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
  bool ended_at_invalid_tag = false;
  // The recursion budget in the innermost message that the end of the input
  // cuts off, and how many bytes it claims beyond (EnterTruncatedMessage).
  int open_budget;
  ptrdiff_t missing = 0;
  // Where the input came from, if it was flattened from the chunks of a stream.
  const FlattenedInput* flattened = nullptr;
};

// The parser of one class: reads fields from [p, end) into `message`, which is
// of that class. Returns `end`; or, in the root, the position of the tag that
// ended the parse (`ParseState::ended_at_invalid_tag`); or null on failure.
// Nothing is read outside [p, end), and what was read before a failure stays in
// the message.
using FlatParser = const uint8_t* (*)(google::protobuf::MessageLite* message,
                                      const uint8_t* p, const uint8_t* end,
                                      ParseState* state);

}  // namespace internal
}  // namespace vantiro

#endif  // VANTIRO_LIB_INTERNAL_PARSE_STATE_H_
