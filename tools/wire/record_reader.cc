#include "tools/wire/record_reader.h"

#include <algorithm>
#include <climits>
#include <utility>

#include "tools/wire/scalar.h"

namespace vantiro {
namespace tools {

using google::protobuf::internal::WireFormatLite;

std::optional<Fault> RecordReader::Read(const Descriptor& type) {
  ReadFields(type, TakeState(type));
  return std::move(fault_);
}

bool RecordReader::ReadFields(const Descriptor& type, MessageState* state) {
  int highest = 0;
  while (!reader_.AtEnd()) {
    Occurrence occurrence;
    if (!ReadTag(&occurrence)) return false;
    const int number = occurrence.number;
    const FieldDescriptor* const field = type.FindFieldByNumber(number);
    if (field != nullptr && AcceptsWireType(*field, occurrence.wire_type)) {
      occurrence.field = field;
      if (number < highest) occurrence.flags.Add(EncodingFlag::kOutOfOrder);
      highest = std::max(highest, number);
      FieldState& of_field = (*state)[static_cast<size_t>(field->index())];
      path_.push_back({field, number, of_field.count});
      if (!ReadKnown(&of_field, &occurrence)) return false;
    } else {
      occurrence.flags.Add(EncodingFlag::kUnknown);
      highest = INT_MAX;
      path_.push_back({nullptr, number, 0});
      if (!ReadUnknown(&occurrence)) return false;
    }
    path_.pop_back();
  }
  return true;
}

bool RecordReader::ReadTag(Occurrence* field) {
  const size_t start = reader_.offset();
  Tag tag;
  if (!reader_.ReadTag(&tag)) return FailVarint("tag");
  field->tag = SpanFrom(start);
  if (tag.value == 0) return Fail(start, "a tag of value 0");
  field->number = tag.number();
  field->wire_type = tag.wire_type();
  if (!tag.is_shortest) field->flags.Add(EncodingFlag::kOverlongTag);
  return true;
}

bool RecordReader::ReadKnown(FieldState* state, Occurrence* field) {
  const FieldDescriptor& descriptor = *field->field;
  field->index = state->count;
  if (!descriptor.is_repeated() && state->is_seen) {
    field->flags.Add(EncodingFlag::kDuplicate);
  }
  if (descriptor.cpp_type() == FieldDescriptor::CPPTYPE_MESSAGE) {
    return ReadMessage(state, field);
  }
  if (descriptor.cpp_type() == FieldDescriptor::CPPTYPE_STRING) {
    return ReadString(state, field);
  }
  if (!descriptor.is_repeated()) return ReadSingular(state, field);
  return field->wire_type == WireFormatLite::WIRETYPE_LENGTH_DELIMITED
             ? ReadPacked(state, field)
             : ReadUnpacked(state, field);
}

// A message that is cut off is read up to the end.
bool RecordReader::ReadMessage(FieldState* state, Occurrence* field) {
  const Descriptor& type = *field->field->message_type();
  state->is_seen = true;
  ++state->count;
  field->is_complete = false;
  uint64_t length = 0;
  const bool can_enter = ReadLength(field, &length) && Enter();
  const size_t left = reader_.left();
  size_t rest = 0;
  if (can_enter) {
    rest = reader_.Limit(std::min<size_t>(length, left));
    field->value = {reader_.offset(), reader_.left()};
  }
  visitor_.Begin(*field);
  bool ok = can_enter;
  if (ok && field->field->is_repeated()) {
    MessageState* const fresh = TakeState(type);
    ok = ReadFields(type, fresh);
    ReturnState(fresh);
  } else if (ok) {
    if (state->sub == nullptr) state->sub = TakeState(type);
    ok = ReadFields(type, state->sub);
  }
  field->is_complete = ok && length <= left;
  visitor_.End(*field);
  if (!ok) return false;
  reader_.Extend(rest);
  ++depth_budget_;
  return field->is_complete || FailCutOff("message", length, left);
}

// The class keeps a string that is not UTF-8.
bool RecordReader::ReadString(FieldState* state, Occurrence* field) {
  const bool is_string = field->field->type() == FieldDescriptor::TYPE_STRING;
  uint64_t length;
  if (!ReadLength(field, &length) ||
      !CheckFits(is_string ? "string" : "bytes", length)) {
    return false;
  }
  field->value = {reader_.offset(), length};
  reader_.Skip(length);
  if (length == 0) field->flags.Add(EncodingFlag::kWrittenDefault);
  state->is_seen = true;
  visitor_.Add(*field, nullptr);
  if (is_string && !IsUtf8(bytes_.substr(field->value.offset, length))) {
    return Fail(field->value.offset, "the string is not UTF-8");
  }
  return true;
}

bool RecordReader::ReadSingular(FieldState* state, Occurrence* field) {
  state->is_seen = true;
  return ReadOneElement(field);
}

bool RecordReader::ReadLength(Occurrence* field, uint64_t* length) {
  const size_t start = reader_.offset();
  Varint varint;
  if (!reader_.ReadVarint(&varint)) return FailVarint("length");
  field->length = SpanFrom(start);
  *length = varint.value;
  // The classes use the low 32 bits of the length of a packed run of enums.
  const bool is_enum = field->field != nullptr &&
                       field->field->type() == FieldDescriptor::TYPE_ENUM;
  if (is_enum) *length = static_cast<uint32_t>(*length);
  if (*length > INT_MAX) {
    return Fail(field->length.offset,
                "a length of " + std::to_string(*length) + " is too large");
  }
  if (!varint.IsShortest() || *length != varint.value) {
    field->flags.Add(EncodingFlag::kOverlongLength);
  }
  return true;
}

bool RecordReader::CheckFits(const char* what, size_t size) {
  return size <= reader_.left() ||
         Fail(reader_.offset(), std::string(what) + " needs " +
                                    ByteCount(size) + ", " +
                                    std::to_string(reader_.left()) + " left");
}

bool RecordReader::Enter() {
  return --depth_budget_ >= 0 ||
         Fail(reader_.offset(), "nested deeper than 100 levels");
}

RecordReader::MessageState* RecordReader::TakeState(const Descriptor& type) {
  if (free_states_.empty()) free_states_.push_back(&states_.emplace_back());
  MessageState* const state = free_states_.back();
  free_states_.pop_back();
  state->assign(static_cast<size_t>(type.field_count()), FieldState());
  return state;
}

void RecordReader::ReturnState(MessageState* state) {
  for (const FieldState& field : *state) {
    if (field.sub != nullptr) ReturnState(field.sub);
  }
  free_states_.push_back(state);
}

bool RecordReader::FailVarint(const char* what) {
  const size_t left = reader_.left();
  return Fail(reader_.offset(),
              std::string(what) + (left < kMaxVarintSize
                                       ? " is cut off after " + ByteCount(left)
                                       : " has more than 10 bytes"));
}

bool RecordReader::FailCutOff(const char* what, size_t size, size_t left) {
  return Fail(reader_.offset(), std::string(what) + " of " + ByteCount(size) +
                                    " is cut off after " +
                                    std::to_string(left));
}

bool RecordReader::Fail(size_t offset, const std::string& what) {
  fault_ = Fault{offset, Path(), what};
  return false;
}

std::string RecordReader::Path() const {
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
