// The values of a record, whether read from bytes, text or JSON.

#ifndef VANTIRO_TOOLS_RECORD_RECORD_H_
#define VANTIRO_TOOLS_RECORD_RECORD_H_

#include <google/protobuf/unknown_field_set.h>

#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "tools/record/field_value.h"
#include "tools/schema/schema.h"
#include "tools/wire/fault.h"
#include "tools/wire/flat_map.h"

namespace vantiro {
namespace tools {

// By field number.
using FieldValues = FlatMap<FieldValue>;

// The field's value; an empty one is added if there is none.
inline FieldValue* MutableValue(const FieldDescriptor& field,
                                FieldValues* values) {
  const size_t size = values->size();
  FieldValue* const value = &(*values)[field.number()];
  if (values->size() > size) *value = FieldValue(field);
  return value;
}

struct Record {
  explicit Record(const Descriptor& descriptor) : type(&descriptor) {}
  // An UnknownFieldSet has no move constructor.
  Record(Record&& other) noexcept
      : type(other.type),
        is_complete(other.is_complete),
        fields(std::move(other.fields)) {
    unknown.Swap(&other.unknown);
  }
  Record& operator=(Record&& other) noexcept {
    type = other.type;
    is_complete = other.is_complete;
    fields = std::move(other.fields);
    unknown.Swap(&other.unknown);
    return *this;
  }

  FieldValue* Mutable(const FieldDescriptor& field) {
    return MutableValue(field, &fields);
  }

  const Descriptor* type;
  // False if a fault ended the reading of this message.
  bool is_complete = true;
  // A field without an entry has its default value; in a message that is not
  // complete, an unknown one.
  FieldValues fields;
  google::protobuf::UnknownFieldSet unknown;
};

// These of FieldValue need a whole Record.

inline FieldValue::FieldValue(FieldValue&& other) noexcept = default;
inline FieldValue& FieldValue::operator=(FieldValue&& other) noexcept = default;
inline FieldValue::~FieldValue() = default;

inline ArrayView<const Record> FieldValue::messages() const {
  const auto* const messages = std::get_if<OwnedMessages>(&value_);
  if (messages == nullptr) return {};
  return {(*messages)->data(), (*messages)->size()};
}

inline ArrayView<Record> FieldValue::mutable_messages() {
  auto* const messages = std::get_if<OwnedMessages>(&value_);
  if (messages == nullptr) return {};
  return {(*messages)->data(), (*messages)->size()};
}

struct DecodedRecord {
  Record record;
  std::optional<Fault> fault;
};

// The values as the class holds them: of a singular field that occurs several
// times the last value, of a sub-message all of them merged. Of a damaged
// record, what could be read, as RecordReader reads it.
DecodedRecord DecodeRecord(const Descriptor& type, std::string_view bytes);

// Removes, in complete messages at all depths, fields with their default value:
// zeros other than -0.0, empty strings and bytes, and empty repeated fields.
void RemoveDefaults(Record* record);
// Adds, in complete messages at all depths, the fields that have no entry,
// other than messages.
void AddDefaults(Record* record);

// The bytes that the class writes for these values.
std::string Serialize(const Record& record);
// The bytes of the unknown fields alone.
std::string Serialize(const google::protobuf::UnknownFieldSet& unknown);

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_RECORD_RECORD_H_
