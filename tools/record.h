// What a record holds, wherever it came from: bytes, text or JSON.

#ifndef VANTIRO_TOOLS_RECORD_H_
#define VANTIRO_TOOLS_RECORD_H_

#include <google/protobuf/unknown_field_set.h>

#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "tools/record_tree.h"
#include "tools/schema.h"

namespace vantiro {
namespace inspection {

struct Record;

// A field that was met, of one of the three sorts. A singular one has one
// scalar or one message.
struct FieldValue {
  const FieldDescriptor* field = nullptr;
  // Bits as in Element.
  std::vector<uint64_t> scalars;
  std::string text;
  std::vector<Record> messages;
};

struct Record {
  explicit Record(const Descriptor& descriptor) : type(&descriptor) {}
  // The runtime's set of unknown fields can only be swapped.
  Record(Record&& other) noexcept
      : type(other.type), fields(std::move(other.fields)) {
    unknown.Swap(&other.unknown);
  }
  Record& operator=(Record&& other) noexcept {
    type = other.type;
    fields = std::move(other.fields);
    unknown.Swap(&other.unknown);
    return *this;
  }

  // The field's value, an empty one if it was not met before.
  FieldValue* Mutable(const FieldDescriptor& field) {
    FieldValue* const value = &fields[field.number()];
    value->field = &field;
    return value;
  }

  const Descriptor* type;
  // By number. A field that is missing here is zero, empty or absent.
  std::map<int, FieldValue> fields;
  google::protobuf::UnknownFieldSet unknown;
};

// The values of all occurrences as the class holds them: the last one counts,
// sub-messages merge, lists join. Of a damaged record, what was read.
Record MakeRecord(const RecordTree& tree);

// Takes out, at all depths, what cannot be told from never set: zeros other
// than -0.0, and empty texts and lists.
void DropZeros(Record* record);
// Puts in, at all depths, every field but messages.
void AddZeros(Record* record);

// The bytes that the class writes for these values.
std::string Serialize(const Record& record);
// The bytes of unknown fields alone.
std::string Serialize(const google::protobuf::UnknownFieldSet& unknown);

}  // namespace inspection
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_RECORD_H_
