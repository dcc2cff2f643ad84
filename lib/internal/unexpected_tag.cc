#include "internal/unexpected_tag.h"

#include "internal/unknown_field.h"
#include "internal/varint.h"

namespace vantiro {
namespace internal {
namespace {

template <typename Tag>
NextTag<Tag> EndAtInvalidTag(const uint8_t* p, ParseState* state) {
  if (state->in_root()) state->invalid_tag = p;
  return {nullptr, 0};
}

bool HasRawTag(uint32_t tag, RawTag* raw) {
  *raw = ToRawTag(tag);
  return tag <= kMaxTwoByteTag;
}
bool HasRawTag(uint32_t tag, LongRawTag* raw) {
  *raw = ToLongRawTag(tag);
  return true;
}

template <typename Tag>
NextTag<Tag> ReadUnexpected(
    const uint8_t* p, const uint8_t* end, Tag raw,
    google::protobuf::internal::InternalMetadata* metadata, ParseState* state) {
  uint32_t tag = FromRawTag(raw);
  const uint8_t* value = p + RawTagSize(raw);
  if (!IsRawTag(raw)) {
    const Varint varint = ReadVarint(p, end);
    tag = static_cast<uint32_t>(varint.value);
    if (varint.next == nullptr || tag == 0) {
      return EndAtInvalidTag<Tag>(p, state);
    }
    value = varint.next;
    if (HasRawTag(tag, &raw)) return {value - TagSize(tag), raw};
  }
  UnknownFieldReader reader(end, metadata, &state->recursion_budget);
  p = reader.Read(tag, value);
  return {p, p == nullptr ? 0 : Peek<Tag>(p, end)};
}

}  // namespace

NextTag<RawTag> ReadUnexpectedTag(
    const uint8_t* p, const uint8_t* end, RawTag tag,
    google::protobuf::internal::InternalMetadata* metadata, ParseState* state) {
  return ReadUnexpected(p, end, tag, metadata, state);
}

NextTag<LongRawTag> ReadUnexpectedTag(
    const uint8_t* p, const uint8_t* end, LongRawTag tag,
    google::protobuf::internal::InternalMetadata* metadata, ParseState* state) {
  return ReadUnexpected(p, end, tag, metadata, state);
}

}  // namespace internal
}  // namespace vantiro
