#include "internal/unexpected_tag.h"

#include "internal/unknown_field.h"
#include "internal/varint.h"

namespace vantiro {
namespace internal {
namespace {

NextTag EndAtInvalidTag(const uint8_t* p, ParseState* state) {
  if (state->in_root()) state->invalid_tag = p;
  return {nullptr, 0};
}

}  // namespace

NextTag ReadUnexpectedTag(
    const uint8_t* p, const uint8_t* end, RawTag raw,
    google::protobuf::internal::InternalMetadata* metadata, ParseState* state) {
  uint32_t tag = FromRawTag(raw);
  const uint8_t* value = p + RawTagSize(raw);
  if (!IsRawTag(raw)) {
    const Varint varint = ReadVarint(p, end);
    tag = static_cast<uint32_t>(varint.value);
    if (varint.next == nullptr || tag == 0) return EndAtInvalidTag(p, state);
    value = varint.next;
    if (tag <= kMaxTwoByteTag) return {value - TagSize(tag), ToRawTag(tag)};
  }
  UnknownFieldReader reader(end, metadata, &state->recursion_budget);
  p = reader.Read(tag, value);
  return {p, p == nullptr ? 0 : PeekTag(p, end)};
}

}  // namespace internal
}  // namespace vantiro
