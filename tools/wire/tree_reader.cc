#include "tools/wire/tree_reader.h"

#include <algorithm>
#include <climits>
#include <utility>

#include "tools/wire/scalar.h"

namespace vantiro {
namespace tools {

using google::protobuf::internal::WireFormatLite;

RecordTree ReadRecord(const Descriptor& type, std::string_view bytes) {
  RecordTree tree{&type, bytes, {}, std::nullopt};
  TreeReader(&tree).Read();
  return tree;
}

void TreeReader::Read() {
  MessageState state;
  ReadFields(*tree_->type, &state, &tree_->nodes);
}

bool TreeReader::ReadFields(const Descriptor& type, MessageState* state,
                            std::vector<Node>* nodes) {
  int highest = 0;
  while (!reader_.AtEnd()) {
    Node node;
    if (!ReadTag(&node)) return false;
    const FieldDescriptor* const field = type.FindFieldByNumber(node.number);
    if (field != nullptr && AcceptsWireType(*field, node.wire_type)) {
      node.field = field;
      if (node.number < highest) node.flags.Add(EncodingFlag::kOutOfOrder);
      highest = std::max(highest, node.number);
      FieldState* const field_state = &(*state)[node.number];
      path_.push_back({field, node.number, field_state->count});
      if (!ReadKnown(field_state, &node, nodes)) return false;
    } else {
      node.flags.Add(EncodingFlag::kUnknown);
      highest = INT_MAX;
      path_.push_back({nullptr, node.number, 0});
      bool is_there = false;
      const bool ok = ReadUnknown(&node, &is_there);
      if (is_there) nodes->push_back(std::move(node));
      if (!ok) return false;
    }
    path_.pop_back();
  }
  return true;
}

bool TreeReader::ReadTag(Node* node) {
  const size_t start = reader_.offset();
  Tag tag;
  if (!reader_.ReadTag(&tag)) return FailVarint("tag");
  node->tag = SpanFrom(start);
  if (tag.value == 0) return Fail(start, "a tag of value 0");
  node->number = tag.number();
  node->wire_type = tag.wire_type();
  if (!tag.is_shortest) node->flags.Add(EncodingFlag::kOverlongTag);
  return true;
}

bool TreeReader::ReadKnown(FieldState* state, Node* node,
                           std::vector<Node>* nodes) {
  const FieldDescriptor& field = *node->field;
  node->index = state->count;
  if (!field.is_repeated() && state->seen) {
    node->flags.Add(EncodingFlag::kDuplicate);
  }
  bool is_there = true;
  bool ok;
  if (field.cpp_type() == FieldDescriptor::CPPTYPE_MESSAGE) {
    ok = ReadMessage(state, node);
  } else if (field.cpp_type() == FieldDescriptor::CPPTYPE_STRING) {
    ok = ReadString(state, node, &is_there);
  } else if (!field.is_repeated()) {
    is_there = ok = ReadSingular(state, node);
  } else if (node->wire_type == WireFormatLite::WIRETYPE_LENGTH_DELIMITED) {
    ok = ReadPacked(state, node);
    is_there = ok || !node->elements.empty();
  } else {
    return ReadUnpacked(state, node, nodes);
  }
  if (is_there) nodes->push_back(std::move(*node));
  return ok;
}

// A message that is cut off is read up to the end.
bool TreeReader::ReadMessage(FieldState* state, Node* node) {
  const Descriptor& type = *node->field->message_type();
  state->seen = true;
  ++state->count;
  node->is_complete = false;
  uint64_t length;
  if (!ReadLength(node, &length) || !Enter()) return false;
  MessageState fresh;
  MessageState* sub = &fresh;
  if (!node->field->is_repeated()) {
    if (state->sub == nullptr) state->sub = std::make_unique<MessageState>();
    sub = state->sub.get();
  }
  const size_t left = reader_.left();
  const size_t rest = reader_.Limit(std::min<size_t>(length, left));
  node->value = {reader_.offset(), reader_.left()};
  if (!ReadFields(type, sub, &node->children)) return false;
  reader_.Extend(rest);
  ++depth_budget_;
  node->is_complete = length <= left;
  return node->is_complete || FailCutOff("message", length, left);
}

// The class keeps a string that is not UTF-8.
bool TreeReader::ReadString(FieldState* state, Node* node, bool* is_there) {
  *is_there = false;
  const bool is_string = node->field->type() == FieldDescriptor::TYPE_STRING;
  uint64_t length;
  if (!ReadLength(node, &length) ||
      !CheckFits(is_string ? "string" : "bytes", length)) {
    return false;
  }
  node->value = {reader_.offset(), length};
  reader_.Skip(length);
  if (length == 0) node->flags.Add(EncodingFlag::kWrittenDefault);
  state->seen = *is_there = true;
  if (is_string && !IsUtf8(tree_->bytes.substr(node->value.offset, length))) {
    return Fail(node->value.offset, "the string is not UTF-8");
  }
  return true;
}

bool TreeReader::ReadSingular(FieldState* state, Node* node) {
  state->seen = true;
  return ReadElement(node);
}

bool TreeReader::ReadLength(Node* node, uint64_t* length) {
  const size_t start = reader_.offset();
  Varint varint;
  if (!reader_.ReadVarint(&varint)) return FailVarint("length");
  node->length = SpanFrom(start);
  *length = varint.value;
  // The classes use the low 32 bits of the length of a packed run of enums.
  const bool is_enum = node->field != nullptr &&
                       node->field->type() == FieldDescriptor::TYPE_ENUM;
  if (is_enum) *length = static_cast<uint32_t>(*length);
  if (*length > INT_MAX) {
    return Fail(node->length.offset,
                "a length of " + std::to_string(*length) + " is too large");
  }
  if (!varint.IsShortest() || *length != varint.value) {
    node->flags.Add(EncodingFlag::kOverlongLength);
  }
  return true;
}

bool TreeReader::CheckFits(const char* what, size_t size) {
  return size <= reader_.left() ||
         Fail(reader_.offset(), std::string(what) + " needs " +
                                    ByteCount(size) + ", " +
                                    std::to_string(reader_.left()) + " left");
}

bool TreeReader::Enter() {
  return --depth_budget_ >= 0 ||
         Fail(reader_.offset(), "nested deeper than 100 levels");
}

bool TreeReader::FailVarint(const char* what) {
  const size_t left = reader_.left();
  return Fail(reader_.offset(),
              std::string(what) + (left < kMaxVarintSize
                                       ? " is cut off after " + ByteCount(left)
                                       : " has more than 10 bytes"));
}

bool TreeReader::FailCutOff(const char* what, size_t size, size_t left) {
  return Fail(reader_.offset(), std::string(what) + " of " + ByteCount(size) +
                                    " is cut off after " +
                                    std::to_string(left));
}

bool TreeReader::Fail(size_t offset, const std::string& what) {
  tree_->fault = Fault{offset, Path(), what};
  return false;
}

std::string TreeReader::Path() const {
  std::string path;
  for (const Step& step : path_) {
    if (!path.empty()) path += '.';
    path += step.field != nullptr ? step.field->name()
                                  : std::to_string(step.number);
    if (step.field != nullptr && step.field->is_repeated()) {
      path += '[' + std::to_string(step.index) + ']';
    }
  }
  return path;
}

}  // namespace tools
}  // namespace vantiro
