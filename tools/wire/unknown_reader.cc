// The part of TreeReader that reads unknown fields.

#include <string>
#include <utility>

#include "tools/wire/tree_reader.h"

namespace vantiro {
namespace tools {

using google::protobuf::internal::WireFormatLite;

bool TreeReader::ReadUnknown(Node* node, bool* is_there) {
  *is_there = false;
  if (node->number == 0) return Fail(node->tag.offset, "field number 0");
  switch (node->wire_type) {
    case WireFormatLite::WIRETYPE_VARINT:
      return *is_there = ReadUnknownVarint(node);
    case WireFormatLite::WIRETYPE_FIXED64: {
      uint64_t bits = 0;
      return *is_there = CheckFits("fixed64", sizeof(bits)) &&
                         reader_.ReadFixed64(&bits) && AddUnknown(bits, node);
    }
    case WireFormatLite::WIRETYPE_FIXED32: {
      uint32_t bits = 0;
      return *is_there = CheckFits("fixed32", sizeof(bits)) &&
                         reader_.ReadFixed32(&bits) && AddUnknown(bits, node);
    }
    case WireFormatLite::WIRETYPE_LENGTH_DELIMITED: {
      uint64_t length;
      if (!ReadLength(node, &length) || !CheckFits("unknown field", length)) {
        return false;
      }
      node->value = {reader_.offset(), length};
      return *is_there = reader_.Skip(length);
    }
    case WireFormatLite::WIRETYPE_START_GROUP:
      *is_there = true;
      return ReadGroup(node);
    case WireFormatLite::WIRETYPE_END_GROUP:
      return Fail(node->tag.offset, "an end-group tag without a group");
    default:
      return Fail(node->tag.offset,
                  "invalid wire type " + std::to_string(node->wire_type));
  }
}

bool TreeReader::ReadUnknownVarint(Node* node) {
  Varint varint;
  if (!reader_.ReadVarint(&varint)) return FailVarint("varint");
  if (!varint.IsShortest()) node->flags.Add(EncodingFlag::kOverlongValue);
  return AddUnknown(varint.value, node);
}

bool TreeReader::AddUnknown(uint64_t bits, Node* node) {
  // The value is all that follows the tag.
  node->value = SpanFrom(node->tag.end());
  node->elements.push_back({bits, node->value.offset,
                            static_cast<uint8_t>(node->value.size),
                            node->flags});
  return true;
}

bool TreeReader::ReadGroup(Node* node) {
  if (!Enter()) return false;
  node->value.offset = reader_.offset();
  while (true) {
    node->value = SpanFrom(node->value.offset);
    if (reader_.AtEnd()) {
      return Fail(reader_.offset(), "the group has no end-group tag");
    }
    Node inner;
    inner.flags.Add(EncodingFlag::kUnknown);
    if (!ReadTag(&inner)) return false;
    if (inner.wire_type == WireFormatLite::WIRETYPE_END_GROUP) {
      if (inner.number != node->number) {
        return Fail(inner.tag.offset,
                    "the group ends with the end-group tag of field " +
                        std::to_string(inner.number));
      }
      node->end_tag = inner.tag;
      node->flags.Add(inner.flags);
      ++depth_budget_;
      return true;
    }
    path_.push_back({nullptr, inner.number, 0});
    bool is_there = false;
    const bool ok = ReadUnknown(&inner, &is_there);
    if (is_there) node->children.push_back(std::move(inner));
    if (!ok) return false;
    path_.pop_back();
  }
}

}  // namespace tools
}  // namespace vantiro
