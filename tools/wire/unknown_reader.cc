// The part of TreeReader that reads unknown fields.

#include <cstring>
#include <string>
#include <utility>

#include "tools/wire/tree_reader.h"

namespace vantiro {
namespace tools {

using google::protobuf::internal::WireFormatLite;

bool TreeReader::ReadUnknown(Node* node, bool* is_there) {
  *is_there = false;
  if (node->number == 0) return Fail(node->tag.offset, "field number 0");
  uint64_t value;
  switch (node->wire_type) {
    case WireFormatLite::WIRETYPE_VARINT: {
      if (!ReadVarint("varint", &value, &node->value)) return false;
      if (!IsShortest(node->value, value)) {
        node->flags.Add(EncodingFlag::kOverlongValue);
      }
      node->elements.push_back({value, node->value.offset,
                                static_cast<uint8_t>(node->value.size),
                                node->flags});
      return *is_there = true;
    }
    case WireFormatLite::WIRETYPE_FIXED64:
      return *is_there = ReadFixed(8, node);
    case WireFormatLite::WIRETYPE_FIXED32:
      return *is_there = ReadFixed(4, node);
    case WireFormatLite::WIRETYPE_LENGTH_DELIMITED:
      if (!ReadLength(node, &value) || !CheckFits("unknown field", value)) {
        return false;
      }
      node->value = {position_, value};
      position_ += value;
      return *is_there = true;
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

bool TreeReader::ReadFixed(size_t size, Node* node) {
  if (!CheckFits(size == 4 ? "fixed32" : "fixed64", size)) {
    return false;
  }
  uint64_t bits = 0;
  std::memcpy(&bits, tree_->bytes.data() + position_, size);
  node->value = {position_, size};
  node->elements.push_back(
      {bits, position_, static_cast<uint8_t>(size), node->flags});
  position_ += size;
  return true;
}

bool TreeReader::ReadGroup(Node* node) {
  if (!Enter()) return false;
  node->value.offset = position_;
  while (true) {
    node->value.size = position_ - node->value.offset;
    if (position_ == end_) {
      return Fail(position_, "the group has no end-group tag");
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
