// Every field of every message, with its own accessors behind functions of one
// form.

#ifndef VANTIRO_TESTS_CONFORMANCE_RECORDS_FIELD_TABLE_H_
#define VANTIRO_TESTS_CONFORMANCE_RECORDS_FIELD_TABLE_H_

#include <google/protobuf/message_lite.h>

#include <cstdint>
#include <string>
#include <vector>

#include "tests/conformance/model/schema_model.h"

namespace vantiro {
namespace tests {

using google::protobuf::MessageLite;

// A value of any kind: a text, the bytes of a record, the bits of a float, or
// any other number, extended to 64 bits with its sign.
struct Value {
  uint64_t number;
  std::string bytes;
  // Of a value that an accessor gave: the kind that its C++ type stands for,
  // the first of those that share it; and the type of a record.
  Kind kind = Kind::FLOAT;
  std::string type = "";  // NOLINT: makes it one that may be left out.
};

struct Field {
  const char* message;
  const char* name;
  // Of a record.
  const char* type;
  int number;
  Kind kind;
  bool is_repeated;
  // Sets the field, or adds an element.
  void (*set)(MessageLite* message, const Value& value);
  Value (*get)(const MessageLite& message, int index);
  // How many elements a list has; of a singular record, whether it is present;
  // of other fields, -1.
  int (*size)(const MessageLite& message);
  void (*clear)(MessageLite* message);
};

const std::vector<Field>& AllFields();

}  // namespace tests
}  // namespace vantiro

#endif  // VANTIRO_TESTS_CONFORMANCE_RECORDS_FIELD_TABLE_H_
