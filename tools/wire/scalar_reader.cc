// The part of RecordReader that reads scalars, packed and unpacked.

#include <algorithm>

#include "tools/wire/record_reader.h"
#include "tools/wire/scalar.h"

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

bool RecordReader::ReadPacked(FieldState* state, Occurrence* field) {
  if (state->count > 0) field->flags.Add(EncodingFlag::kFurtherPackedRun);
  return IsFloat(*field->field) ? ReadPackedFloats(state, field)
                                : ReadPackedVarints(state, field);
}

bool RecordReader::ReadPackedFloats(FieldState* state, Occurrence* field) {
  uint64_t length;
  if (!ReadLength(field, &length)) return false;
  if (length % kFloatSize != 0) {
    return Fail(field->length.offset, "a packed run of " + ByteCount(length) +
                                          " does not hold whole floats");
  }
  if (length == 0) field->flags.Add(EncodingFlag::kWrittenDefault);
  const size_t left = reader_.left();
  const size_t count = std::min<size_t>(length, left) / kFloatSize;
  const size_t new_count = state->count + count;
  if (new_count > state->capacity) {
    state->capacity = std::max({size_t{4}, state->capacity * 2, new_count});
  }
  state->count = new_count;
  field->value = {reader_.offset(), count * kFloatSize};
  const bool is_whole = length <= left;
  if (is_whole || count > 0) {
    visitor_.Begin(*field);
    for (size_t i = 0; i < count; ++i) {
      Element element;
      ReadElement(*field->field, &element);
      field->flags.Add(element.flags);
      visitor_.AddElement(element);
    }
    visitor_.End(*field);
  }
  path_.back().index = state->count;
  return is_whole || FailCutOff("packed run", length, left);
}

bool RecordReader::ReadPackedVarints(FieldState* state, Occurrence* field) {
  uint64_t length;
  if (!ReadLength(field, &length)) return false;
  if (length == 0) field->flags.Add(EncodingFlag::kWrittenDefault);
  const size_t left = reader_.left();
  const size_t rest = reader_.Limit(std::min<size_t>(length, left));
  const std::string_view run = reader_.Peek(reader_.left());
  const auto count =
      static_cast<size_t>(std::count_if(run.begin(), run.end(), [](char c) {
        return static_cast<unsigned char>(c) < 0x80;
      }));
  state->capacity = Doubled(state->capacity, state->count + count);
  field->value = {reader_.offset(), run.size()};
  const bool is_whole = length <= left;
  const bool ok = ReadVarintsOfRun(state, field, is_whole);
  if (!ok) return false;
  reader_.Extend(rest);
  path_.back().index = state->count;
  return is_whole || FailCutOff("packed run", length, left);
}

// A run that is damaged before its first element is not there.
bool RecordReader::ReadVarintsOfRun(FieldState* state, Occurrence* field,
                                    bool is_whole) {
  bool ok = true;
  bool has_begun = false;
  while (ok && !reader_.AtEnd()) {
    path_.back().index = state->count;
    Element element;
    ok = ReadElement(*field->field, &element);
    if (!ok) break;
    if (!has_begun) visitor_.Begin(*field);
    has_begun = true;
    field->flags.Add(element.flags);
    visitor_.AddElement(element);
    ++state->count;
  }
  if (!has_begun && ok && is_whole) {
    visitor_.Begin(*field);
    has_begun = true;
  }
  if (has_begun) visitor_.End(*field);
  return ok;
}

// After an unpacked element the classes look for the field's packed tag, and
// read what follows it as one more element. It is how these bytes are read
// everywhere, so it is how they are shown.
bool RecordReader::ReadUnpacked(FieldState* state, Occurrence* field) {
  field->flags.Add(EncodingFlag::kUnpacked);
  if (!ReadOneElement(field)) return false;
  ++state->count;
  state->capacity = Doubled(state->capacity, state->count);
  const FieldDescriptor& descriptor = *field->field;
  if (descriptor.type() == FieldDescriptor::TYPE_ENUM) return true;
  while (state->count < state->capacity) {
    Occurrence next;
    next.field = &descriptor;
    next.index = path_.back().index = state->count;
    if (!IsAtPackedTag(descriptor)) break;
    next.flags.Add(EncodingFlag::kPackedRunAsElement);
    if (!ReadTag(&next) || !ReadOneElement(&next)) return false;
    ++state->count;
  }
  return true;
}

bool RecordReader::ReadOneElement(Occurrence* field) {
  Element element;
  if (!ReadElement(*field->field, &element)) return false;
  field->flags.Add(element.flags);
  field->value = element.span();
  visitor_.Add(*field, &element);
  return true;
}

bool RecordReader::ReadElement(const FieldDescriptor& field, Element* element) {
  element->offset = reader_.offset();
  if (IsFloat(field)) {
    if (!CheckFits("float", kFloatSize)) return false;
    uint32_t bits = 0;
    reader_.ReadFixed32(&bits);
    SetFloat(field, bits, element);
  } else {
    Varint varint;
    if (!reader_.ReadVarint(&varint)) return FailVarint("varint");
    SetVarint(field, varint, element);
  }
  element->size = static_cast<uint8_t>(reader_.offset() - element->offset);
  if (!field.is_repeated() && IsZero(field, element->bits)) {
    element->flags.Add(EncodingFlag::kWrittenDefault);
  }
  return true;
}

bool RecordReader::IsAtPackedTag(const FieldDescriptor& field) const {
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
