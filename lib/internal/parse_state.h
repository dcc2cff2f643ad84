// The state of one parse besides its position.

#ifndef VANTIRO_LIB_INTERNAL_PARSE_STATE_H_
#define VANTIRO_LIB_INTERNAL_PARSE_STATE_H_

#include <google/protobuf/message_lite.h>

#include <cstdint>

#include "internal/arena_chunk.h"
#include "internal/input_bounds.h"

namespace vantiro {
namespace internal {

struct ParseState {
  // Of a parse of `flattened`, or of input in one piece if that is null.
  explicit ParseState(int budget, const FlattenedInput* flattened = nullptr)
      : recursion_budget(budget),
        root_budget(budget),
        bounds(budget, flattened) {}

  bool in_root() const { return recursion_budget == root_budget; }

  // How many more levels of nesting may be entered.
  int recursion_budget;
  const int root_budget;
  // Where the parse of the root message ended without failure before its input
  // did: at a tag of value 0 or at a tag that the end of the input truncates.
  const uint8_t* invalid_tag = nullptr;
  InputBounds bounds;
  // Where messages on an arena are created.
  ArenaChunk chunk;
};

// The parser of one class: reads fields from [p, end) into `message`, which is
// of that class. Returns `end`, or null on failure and at an invalid tag of the
// root message (ParseState::invalid_tag). Reads nothing outside [p, end). What
// was read before a failure stays in the message.
//
// Records are written in the order of field numbers, so emitted parsers look
// for each field after the one before it. Fields in another order need another
// iteration of their loop.
using FlatParser = const uint8_t* (*)(google::protobuf::MessageLite* message,
                                      const uint8_t* p, const uint8_t* end,
                                      ParseState* state);

}  // namespace internal
}  // namespace vantiro

#endif  // VANTIRO_LIB_INTERNAL_PARSE_STATE_H_
