// What a parser does at a tag that none of its declared fields takes.

#ifndef VANTIRO_LIB_INTERNAL_UNEXPECTED_TAG_H_
#define VANTIRO_LIB_INTERNAL_UNEXPECTED_TAG_H_

#include <google/protobuf/metadata_lite.h>

#include <cstdint>

#include "internal/parse_state.h"
#include "internal/tag.h"

namespace vantiro {
namespace internal {

// Where a parser continues: at position `p`, which is null on failure, with the
// raw tag `tag`.
template <typename Tag>
struct NextTag {
  const uint8_t* p;
  Tag tag;
};

// See HandleUnexpectedTag, which emitted code calls.
NextTag<RawTag> ReadUnexpectedTag(
    const uint8_t* p, const uint8_t* end, RawTag tag,
    google::protobuf::internal::InternalMetadata* metadata, ParseState* state);
NextTag<LongRawTag> ReadUnexpectedTag(
    const uint8_t* p, const uint8_t* end, LongRawTag tag,
    google::protobuf::internal::InternalMetadata* metadata, ParseState* state);

// Called by a parser at `p`, before `end`, when none of its fields matched
// `*tag`, which is what Peek gave for `p`. Sets it to the tag that the
// parser continues with, and returns where, or null if the parse ends.
//
// - An overlong tag that has a raw tag: gives the raw tag, and a position for
//   which the value starts RawTagSize bytes later. The parser then tries its
//   fields again.
// - A field that the message does not declare, or declares with another wire
//   type: appends it to the unknown fields in canonical form.
// - A tag of value 0, or one that the end of the input truncates: fails in a
//   sub-message. In the root message it ends the parse without failure
//   (ParseState::invalid_tag).
//
// Inline, so that the parser's `tag` can stay in a register.
template <typename Tag>
inline const uint8_t* HandleUnexpectedTag(
    const uint8_t* p, const uint8_t* end, Tag* tag,
    google::protobuf::internal::InternalMetadata* metadata, ParseState* state) {
  const NextTag<Tag> next = ReadUnexpectedTag(p, end, *tag, metadata, state);
  *tag = next.tag;
  return next.p;
}

}  // namespace internal
}  // namespace vantiro

#endif  // VANTIRO_LIB_INTERNAL_UNEXPECTED_TAG_H_
