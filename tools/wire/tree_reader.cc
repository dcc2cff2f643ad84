#include "tools/wire/tree_reader.h"

#include <google/protobuf/io/coded_stream.h>

#include <algorithm>
#include <climits>
#include <cstring>
#include <utility>

#include "tools/wire/scalar.h"

namespace vantiro {
namespace tools {
namespace {

using google::protobuf::internal::WireFormatLite;
using google::protobuf::io::CodedOutputStream;

constexpr size_t kFloatSize = 4;
constexpr size_t kMaxVarintSize = 10;

uint32_t MakeTag(int number, WireType type) {
  return WireFormatLite::MakeTag(number, type);
}

// The capacity of the class's repeated field after it has grown, one element at
// a time, to `count` elements.
size_t Doubled(size_t capacity, size_t count) {
  if (count <= capacity) return capacity;
  capacity = std::max<size_t>(4, capacity * 2);
  while (capacity < count) capacity *= 2;
  return capacity;
}

}  // namespace

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
  while (position_ != end_) {
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
  uint64_t varint;
  if (!ReadVarint("tag", &varint, &node->tag)) return false;
  const auto tag = static_cast<uint32_t>(varint);
  if (tag == 0) return Fail(node->tag.offset, "a tag of value 0");
  node->number = WireFormatLite::GetTagFieldNumber(tag);
  node->wire_type = WireFormatLite::GetTagWireType(tag);
  if (!IsShortest(node->tag, tag)) node->flags.Add(EncodingFlag::kOverlongTag);
  return true;
}

bool TreeReader::ReadKnown(FieldState* state, Node* node,
                           std::vector<Node>* nodes) {
  const FieldDescriptor& field = *node->field;
  node->index = state->count;
  if (!field.is_repeated() && state->seen)
    node->flags.Add(EncodingFlag::kDuplicate);
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
  uint64_t length;
  if (!ReadLength(node, &length) || !Enter()) return false;
  MessageState fresh;
  MessageState* sub = &fresh;
  if (!node->field->is_repeated()) {
    if (state->sub == nullptr) state->sub = std::make_unique<MessageState>();
    sub = state->sub.get();
  }
  const size_t outer_end = end_;
  const size_t left = Left();
  end_ = position_ + std::min<size_t>(length, left);
  node->value = {position_, end_ - position_};
  if (!ReadFields(type, sub, &node->children)) return false;
  if (length > left) {
    return Fail(position_, "message of " + ByteCount(length) +
                               " is cut off after " + std::to_string(left));
  }
  end_ = outer_end;
  ++depth_budget_;
  return true;
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
  node->value = {position_, length};
  position_ += length;
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

bool TreeReader::ReadPacked(FieldState* state, Node* node) {
  if (state->count > 0) node->flags.Add(EncodingFlag::kFurtherPackedRun);
  return IsFloat(*node->field) ? ReadPackedFloats(state, node)
                               : ReadPackedVarints(state, node);
}

bool TreeReader::ReadPackedFloats(FieldState* state, Node* node) {
  uint64_t length;
  if (!ReadLength(node, &length)) return false;
  if (length % kFloatSize != 0) {
    return Fail(node->length.offset, "a packed run of " + ByteCount(length) +
                                         " does not hold whole floats");
  }
  if (length == 0) node->flags.Add(EncodingFlag::kWrittenDefault);
  const size_t left = Left();
  const size_t count = std::min<size_t>(length, left) / kFloatSize;
  const size_t new_count = state->count + count;
  if (new_count > state->capacity) {
    state->capacity = std::max({size_t{4}, state->capacity * 2, new_count});
  }
  state->count = new_count;
  node->value = {position_, count * kFloatSize};
  node->elements.reserve(count);
  for (size_t i = 0; i < count; ++i) ReadElement(node);
  path_.back().index = state->count;
  return length <= left ||
         Fail(position_, "packed run of " + ByteCount(length) +
                             " is cut off after " + std::to_string(left));
}

bool TreeReader::ReadPackedVarints(FieldState* state, Node* node) {
  uint64_t length;
  if (!ReadLength(node, &length)) return false;
  if (length == 0) node->flags.Add(EncodingFlag::kWrittenDefault);
  const size_t outer_end = end_;
  const size_t left = Left();
  end_ = position_ + std::min<size_t>(length, left);
  const std::string_view run = tree_->bytes.substr(position_, Left());
  const auto count =
      static_cast<size_t>(std::count_if(run.begin(), run.end(), [](char c) {
        return static_cast<unsigned char>(c) < 0x80;
      }));
  state->capacity = Doubled(state->capacity, state->count + count);
  node->value = {position_, Left()};
  node->elements.reserve(count);
  while (position_ != end_) {
    path_.back().index = state->count;
    if (!ReadElement(node)) return false;
    ++state->count;
  }
  end_ = outer_end;
  path_.back().index = state->count;
  return length <= left ||
         Fail(position_, "packed run of " + ByteCount(length) +
                             " is cut off after " + std::to_string(left));
}

// After an unpacked element the classes look for the field's packed tag, and
// read what follows it as one more element. It is how these bytes are read
// everywhere, so it is how they are shown.
bool TreeReader::ReadUnpacked(FieldState* state, Node* node,
                              std::vector<Node>* nodes) {
  node->flags.Add(EncodingFlag::kUnpacked);
  if (!ReadElement(node)) return false;
  ++state->count;
  state->capacity = Doubled(state->capacity, state->count);
  const FieldDescriptor& field = *node->field;
  nodes->push_back(std::move(*node));
  if (field.type() == FieldDescriptor::TYPE_ENUM) return true;
  while (state->count < state->capacity) {
    Node next;
    next.field = &field;
    next.number = field.number();
    next.index = path_.back().index = state->count;
    if (!IsAtPackedTag(next)) break;
    next.wire_type = WireFormatLite::WIRETYPE_LENGTH_DELIMITED;
    next.flags.Add(EncodingFlag::kPackedRunAsElement);
    uint64_t tag;
    if (!ReadVarint("tag", &tag, &next.tag)) return false;
    if (!ReadElement(&next)) return false;
    ++state->count;
    nodes->push_back(std::move(next));
  }
  return true;
}

bool TreeReader::ReadElement(Node* node) {
  const FieldDescriptor& field = *node->field;
  uint64_t bits = 0;
  Span span;
  if (IsFloat(field)) {
    if (!CheckFits("float", kFloatSize)) return false;
    uint32_t low;
    std::memcpy(&low, tree_->bytes.data() + position_, sizeof(low));
    bits = low;
    span = {position_, kFloatSize};
    position_ += kFloatSize;
  } else if (!ReadVarint("varint", &bits, &span)) {
    return false;
  }
  node->elements.push_back(
      MakeElement(field, bits, span, !field.is_repeated()));
  node->flags.Add(node->elements.back().flags);
  if (node->value.size == 0) node->value = span;
  return true;
}

Element TreeReader::MakeElement(const FieldDescriptor& field, uint64_t raw,
                                const Span& span, bool is_singular) const {
  Element element{raw, span.offset, static_cast<uint8_t>(span.size), {}};
  if (IsFloat(field)) {
    if (IsNan(raw)) element.flags.Add(EncodingFlag::kNan);
    if (raw != 0 && IsZero(field, raw))
      element.flags.Add(EncodingFlag::kNegativeZero);
  } else {
    element.bits = FromVarint(field, raw);
    if (!IsShortest(span, raw)) element.flags.Add(EncodingFlag::kOverlongValue);
    if (ToVarint(field, element.bits) != raw) {
      element.flags.Add(EncodingFlag::kOutOfRangeValue);
    }
  }
  if (field.type() == FieldDescriptor::TYPE_ENUM &&
      DeclaredValue(field, element.bits) == nullptr) {
    element.flags.Add(EncodingFlag::kUndeclaredEnum);
  }
  if (is_singular && IsZero(field, element.bits)) {
    element.flags.Add(EncodingFlag::kWrittenDefault);
  }
  return element;
}

bool TreeReader::ReadVarint(const char* what, uint64_t* value, Span* span) {
  *value = 0;
  const size_t start = position_;
  for (size_t i = 0; i < kMaxVarintSize; ++i) {
    if (start + i == end_) {
      return Fail(start,
                  std::string(what) + " is cut off after " + ByteCount(i));
    }
    const auto byte = static_cast<uint8_t>(tree_->bytes[start + i]);
    *value |= static_cast<uint64_t>(byte & 0x7f) << (7 * i);
    if (byte < 0x80) {
      *span = {start, i + 1};
      position_ = span->end();
      return true;
    }
  }
  return Fail(start, std::string(what) + " has more than 10 bytes");
}

bool TreeReader::ReadLength(Node* node, uint64_t* length) {
  if (!ReadVarint("length", length, &node->length)) return false;
  // The classes use the low 32 bits of the length of a packed run of enums.
  const bool is_enum = node->field != nullptr &&
                       node->field->type() == FieldDescriptor::TYPE_ENUM;
  if (is_enum) *length = static_cast<uint32_t>(*length);
  if (*length > INT_MAX) {
    return Fail(node->length.offset,
                "a length of " + std::to_string(*length) + " is too large");
  }
  if (!IsShortest(node->length, *length)) {
    node->flags.Add(EncodingFlag::kOverlongLength);
  }
  return true;
}

bool TreeReader::CheckFits(const char* what, size_t size) {
  return size <= Left() ||
         Fail(position_, std::string(what) + " needs " + ByteCount(size) +
                             ", " + std::to_string(Left()) + " left");
}

bool TreeReader::Enter() {
  return --depth_budget_ >= 0 ||
         Fail(position_, "nested deeper than 100 levels");
}

bool TreeReader::IsAtPackedTag(const Node& node) const {
  uint8_t tag[5];
  const uint8_t* const tag_end = CodedOutputStream::WriteTagToArray(
      MakeTag(node.number, WireFormatLite::WIRETYPE_LENGTH_DELIMITED), tag);
  const auto size = static_cast<size_t>(tag_end - tag);
  const size_t needed = size + (IsFloat(*node.field) ? kFloatSize : 0);
  return Left() >= needed &&
         std::memcmp(tree_->bytes.data() + position_, tag, size) == 0;
}

bool TreeReader::IsShortest(const Span& span, uint64_t value) const {
  uint8_t shortest[kMaxVarintSize];
  const uint8_t* const end =
      CodedOutputStream::WriteVarint64ToArray(value, shortest);
  return span.size == static_cast<size_t>(end - shortest) &&
         std::memcmp(tree_->bytes.data() + span.offset, shortest, span.size) ==
             0;
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
