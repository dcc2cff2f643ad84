// What the parsers do with a tag that is not the raw tag of a declared field.

#ifndef VANTIRO_LIB_INTERNAL_UNEXPECTED_TAG_H_
#define VANTIRO_LIB_INTERNAL_UNEXPECTED_TAG_H_

#include <google/protobuf/metadata_lite.h>

#include <cstdint>

#include "internal/parse_state.h"
#include "internal/tag.h"

namespace vantiro {
namespace internal {

// Where a parser goes on: a position, null for a failure, and the raw tag that
// it is to take the position for.
struct NextTag {
  const uint8_t* p;
  RawTag tag;
};

// Called by a parser at `p`, before `end`, when none of its fields took
// anything. `tag` is what PeekTag gave for `p`.
//
// - An overlong tag is brought into its raw form, and the position returned is
//   such that the value stands RawTagSize bytes behind it. The parser tries its
//   fields once more.
// - A field that the message doesn't declare, or declares with another wire
//   type, is appended to the unknown fields in canonical form.
// - A tag of value 0, or one that the end of the input cuts off, fails in a
//   sub-message. It ends the parse in the root (ParseState::ended_at_bad_tag).
NextTag ReadUnusualTag(const uint8_t* p, const uint8_t* end, RawTag tag,
                       google::protobuf::internal::InternalMetadata* metadata,
                       ParseState* state);

}  // namespace internal
}  // namespace vantiro

#endif  // VANTIRO_LIB_INTERNAL_UNEXPECTED_TAG_H_
