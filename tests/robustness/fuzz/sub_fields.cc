#include "tests/robustness/fuzz/sub_fields.h"

#include <map>
#include <type_traits>

#include "all_units.h"

namespace vantiro {
namespace tests {
namespace {

using google::protobuf::MessageLite;

using Fields = std::map<std::string, std::vector<SubField>>;

// NOLINTNEXTLINE(google-readability-function-size): a line for each field.
Fields* MakeFields() {
  auto* const fields = new Fields;
#define VANTIRO_SUB(type, message, number, field, sub)                       \
  (*fields)[message].push_back(                                              \
      {number, sub,                                                          \
       [](const MessageLite& m) {                                            \
         return static_cast<const type&>(m).has_##field();                   \
       },                                                                    \
       [](MessageLite* m) { static_cast<type*>(m)->mutable_##field(); },     \
       [](MessageLite* m) { static_cast<type*>(m)->clear_##field(); },       \
       [](MessageLite* m) -> MessageLite* {                                  \
         return static_cast<type*>(m)->release_##field();                    \
       },                                                                    \
       [](MessageLite* m, MessageLite* s) {                                  \
         using Sub = std::remove_pointer_t<                                  \
             decltype(static_cast<type*>(m)->mutable_##field())>;            \
         static_cast<type*>(m)->set_allocated_##field(static_cast<Sub*>(s)); \
       }});
#include "all_types.inc"
  return fields;
}

}  // namespace

const std::vector<SubField>& SubFieldsOf(const std::string& type_name) {
  static Fields* const fields = MakeFields();
  return (*fields)[type_name];
}

}  // namespace tests
}  // namespace vantiro
