// The schema as the model of the wire rules needs it: numbers and kinds.

#ifndef VANTIRO_TESTS_CONFORMANCE_MODEL_SCHEMA_MODEL_H_
#define VANTIRO_TESTS_CONFORMANCE_MODEL_SCHEMA_MODEL_H_

#include <map>
#include <string>

namespace vantiro {
namespace tests {

enum class Kind {
  FLOAT,
  BOOL,
  UINT32,
  INT32,
  SINT32,
  UINT64,
  INT64,
  SINT64,
  ENUM,
  STRING,
  BYTES,
  MESSAGE,
};

struct MessageModel;

struct FieldModel {
  Kind kind;
  bool is_list;
  // The type of a message field, by name and, once all are known, by address.
  std::string sub_name;
  const MessageModel* sub = nullptr;
};

struct MessageModel {
  std::map<int, FieldModel> fields;
};

// The model of the message of that name. Ends the program if there is none.
const MessageModel& FindMessageModel(const std::string& name);

}  // namespace tests
}  // namespace vantiro

#endif  // VANTIRO_TESTS_CONFORMANCE_MODEL_SCHEMA_MODEL_H_
