// The part of TreeReader that reads scalars, packed and unpacked.

#include <algorithm>
#include <utility>

#include "tools/wire/scalar.h"
#include "tools/wire/tree_reader.h"

namespace vantiro {
namespace tools {
namespace {

using google::protobuf::internal::WireFormatLite;

constexpr size_t kFloatSize = 4;

// The capacity of the class's repeated field after it has grown, one element at
// a time, to `count` elements.
size_t Doubled(size_t capacity, size_t count) {
  if (count <= capacity) return capacity;
  capacity = std::max<size_t>(4, capacity * 2);
  while (capacity < count) capacity *= 2;
  return capacity;
}

void SetFloat(const FieldDescriptor& field, uint32_t bits, Element* element) {
  element->bits = bits;
  if (IsNan(bits)) element->flags.Add(EncodingFlag::kNan);
  if (bits != 0 && IsZero(field, bits)) {
    element->flags.Add(EncodingFlag::kNegativeZero);
  }
}

void SetVarint(const FieldDescriptor& field, const Varint& varint,
               Element* element) {
  element->bits = FromVarint(field, varint.value);
  if (!varint.IsShortest()) element->flags.Add(EncodingFlag::kOverlongValue);
  if (ToVarint(field, element->bits) != varint.value) {
    element->flags.Add(EncodingFlag::kOutOfRangeValue);
  }
  if (field.type() == FieldDescriptor::TYPE_ENUM &&
      DeclaredValue(field, element->bits) == nullptr) {
    element->flags.Add(EncodingFlag::kUndeclaredEnum);
  }
}

}  // namespace

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
  const size_t left = reader_.left();
  const size_t count = std::min<size_t>(length, left) / kFloatSize;
  const size_t new_count = state->count + count;
  if (new_count > state->capacity) {
    state->capacity = std::max({size_t{4}, state->capacity * 2, new_count});
  }
  state->count = new_count;
  node->value = {reader_.offset(), count * kFloatSize};
  node->elements.reserve(count);
  for (size_t i = 0; i < count; ++i) ReadElement(node);
  path_.back().index = state->count;
  return length <= left || FailCutOff("packed run", length, left);
}

bool TreeReader::ReadPackedVarints(FieldState* state, Node* node) {
  uint64_t length;
  if (!ReadLength(node, &length)) return false;
  if (length == 0) node->flags.Add(EncodingFlag::kWrittenDefault);
  const size_t left = reader_.left();
  const size_t rest = reader_.Limit(std::min<size_t>(length, left));
  const std::string_view run = reader_.Peek(reader_.left());
  const auto count =
      static_cast<size_t>(std::count_if(run.begin(), run.end(), [](char c) {
        return static_cast<unsigned char>(c) < 0x80;
      }));
  state->capacity = Doubled(state->capacity, state->count + count);
  node->value = {reader_.offset(), run.size()};
  node->elements.reserve(count);
  while (!reader_.AtEnd()) {
    path_.back().index = state->count;
    if (!ReadElement(node)) return false;
    ++state->count;
  }
  reader_.Extend(rest);
  path_.back().index = state->count;
  return length <= left || FailCutOff("packed run", length, left);
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
    next.index = path_.back().index = state->count;
    if (!IsAtPackedTag(field)) break;
    next.flags.Add(EncodingFlag::kPackedRunAsElement);
    if (!ReadTag(&next) || !ReadElement(&next)) return false;
    ++state->count;
    nodes->push_back(std::move(next));
  }
  return true;
}

bool TreeReader::ReadElement(Node* node) {
  const FieldDescriptor& field = *node->field;
  Element element;
  element.offset = reader_.offset();
  if (IsFloat(field)) {
    if (!CheckFits("float", kFloatSize)) return false;
    uint32_t bits = 0;
    reader_.ReadFixed32(&bits);
    SetFloat(field, bits, &element);
  } else {
    Varint varint;
    if (!reader_.ReadVarint(&varint)) return FailVarint("varint");
    SetVarint(field, varint, &element);
  }
  element.size = static_cast<uint8_t>(reader_.offset() - element.offset);
  if (!field.is_repeated() && IsZero(field, element.bits)) {
    element.flags.Add(EncodingFlag::kWrittenDefault);
  }
  node->elements.push_back(element);
  node->flags.Add(element.flags);
  if (node->value.size == 0) node->value = element.span();
  return true;
}

bool TreeReader::IsAtPackedTag(const FieldDescriptor& field) const {
  WireReader ahead = reader_;
  Tag tag;
  return ahead.ReadTag(&tag) && tag.is_shortest &&
         tag.value ==
             WireFormatLite::MakeTag(
                 field.number(), WireFormatLite::WIRETYPE_LENGTH_DELIMITED) &&
         (!IsFloat(field) || ahead.left() >= kFloatSize);
}

}  // namespace tools
}  // namespace vantiro
