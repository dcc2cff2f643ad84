// The singular message fields of every type, with what can be done to them.

#ifndef VANTIRO_TESTS_ROBUSTNESS_FUZZ_SUB_FIELDS_H_
#define VANTIRO_TESTS_ROBUSTNESS_FUZZ_SUB_FIELDS_H_

#include <google/protobuf/message_lite.h>

#include <string>
#include <vector>

namespace vantiro {
namespace tests {

struct SubField {
  int number;
  const char* sub_name;
  bool (*has)(const google::protobuf::MessageLite& message);
  void (*create)(google::protobuf::MessageLite* message);
  void (*clear)(google::protobuf::MessageLite* message);
  google::protobuf::MessageLite* (*release)(
      google::protobuf::MessageLite* message);
  void (*set_allocated)(google::protobuf::MessageLite* message,
                        google::protobuf::MessageLite* sub);
};

const std::vector<SubField>& SubFieldsOf(const std::string& type_name);

}  // namespace tests
}  // namespace vantiro

#endif  // VANTIRO_TESTS_ROBUSTNESS_FUZZ_SUB_FIELDS_H_
