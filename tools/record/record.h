// The values of a record, whether read from bytes, text or JSON.

#ifndef VANTIRO_TOOLS_RECORD_RECORD_H_
#define VANTIRO_TOOLS_RECORD_RECORD_H_

#include <google/protobuf/unknown_field_set.h>

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "tools/schema/schema.h"
#include "tools/wire/flat_map.h"
#include "tools/wire/record_tree.h"

namespace vantiro {
namespace tools {

struct Record;

// The value of a field: one of the three, by the field's type. A singular field
// has one scalar or one message.
struct FieldValue {
  const FieldDescriptor* field = nullptr;
  // Bits as scalar.h describes them.
  std::vector<uint64_t> scalars;
  // Of a string or bytes.
  std::string string_value;
  std::vector<Record> messages;
};

// The value that a field without an entry has; not for messages.
FieldValue DefaultValue(const FieldDescriptor& field);

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

  // The field's value; an empty one is added if there is none.
  FieldValue* Mutable(const FieldDescriptor& field) {
    FieldValue* const value = &fields[field.number()];
    value->field = &field;
    return value;
  }

  const Descriptor* type;
  // False if a fault ended the reading of this message.
  bool is_complete = true;
  // By field number. A field without an entry has its default value; in a
  // message that is not complete, an unknown one.
  FlatMap<FieldValue> fields;
  google::protobuf::UnknownFieldSet unknown;
};

// The values as the class holds them: of a singular field that occurs several
// times the last value, of a sub-message all of them merged. Of a damaged
// record, what could be read.
Record MakeRecord(const RecordTree& tree);

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
