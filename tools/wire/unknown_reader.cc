// The part of RecordReader that reads unknown fields.

#include <string>

#include "tools/wire/record_reader.h"

namespace vantiro {
namespace tools {

using google::protobuf::internal::WireFormatLite;

bool RecordReader::ReadUnknown(Occurrence* field) {
  if (field->number == 0) return Fail(field->tag.offset, "field number 0");
  switch (field->wire_type) {
    case WireFormatLite::WIRETYPE_VARINT:
      return ReadUnknownVarint(field);
    case WireFormatLite::WIRETYPE_FIXED64: {
      uint64_t bits = 0;
      return CheckFits("fixed64", sizeof(bits)) && reader_.ReadFixed64(&bits) &&
             AddUnknown(bits, field);
    }
    case WireFormatLite::WIRETYPE_FIXED32: {
      uint32_t bits = 0;
      return CheckFits("fixed32", sizeof(bits)) && reader_.ReadFixed32(&bits) &&
             AddUnknown(bits, field);
    }
    case WireFormatLite::WIRETYPE_LENGTH_DELIMITED: {
      uint64_t length;
      if (!ReadLength(field, &length) || !CheckFits("unknown field", length)) {
        return false;
      }
      field->value = {reader_.offset(), length};
      reader_.Skip(length);
      visitor_.Add(*field, nullptr);
      return true;
    }
    case WireFormatLite::WIRETYPE_START_GROUP: {
      visitor_.Begin(*field);
      const bool ok = ReadGroup(field);
      visitor_.End(*field);
      return ok;
    }
    case WireFormatLite::WIRETYPE_END_GROUP:
      return Fail(field->tag.offset, "an end-group tag without a group");
    default:
      return Fail(field->tag.offset,
                  "invalid wire type " + std::to_string(field->wire_type));
  }
}

bool RecordReader::ReadUnknownVarint(Occurrence* field) {
  Varint varint;
  if (!reader_.ReadVarint(&varint)) return FailVarint("varint");
  if (!varint.IsShortest()) field->flags.Add(EncodingFlag::kOverlongValue);
  return AddUnknown(varint.value, field);
}

bool RecordReader::AddUnknown(uint64_t bits, Occurrence* field) {
  // The value is all that follows the tag.
  field->value = SpanFrom(field->tag.end());
  const Element element = {bits, field->value.offset,
                           static_cast<uint8_t>(field->value.size),
                           field->flags};
  visitor_.Add(*field, &element);
  return true;
}

bool RecordReader::ReadGroup(Occurrence* field) {
  if (!Enter()) return false;
  field->value.offset = reader_.offset();
  while (true) {
    field->value = SpanFrom(field->value.offset);
    if (reader_.AtEnd()) {
      return Fail(reader_.offset(), "the group has no end-group tag");
    }
    Occurrence inner;
    inner.flags.Add(EncodingFlag::kUnknown);
    if (!ReadTag(&inner)) return false;
    if (inner.wire_type == WireFormatLite::WIRETYPE_END_GROUP) {
      if (inner.number != field->number) {
        return Fail(inner.tag.offset,
                    "the group ends with the end-group tag of field " +
                        std::to_string(inner.number));
      }
      field->end_tag = inner.tag;
      field->flags.Add(inner.flags);
      ++depth_budget_;
      return true;
    }
    path_.push_back({nullptr, inner.number, 0});
    if (!ReadUnknown(&inner)) return false;
    path_.pop_back();
  }
}

}  // namespace tools
}  // namespace vantiro
