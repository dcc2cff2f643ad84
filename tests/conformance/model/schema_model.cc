#include "tests/conformance/model/schema_model.h"

#include "all_units.h"

namespace vantiro {
namespace tests {
namespace {

using Messages = std::map<std::string, MessageModel>;

// NOLINTNEXTLINE(google-readability-function-size): a line for each field.
Messages* MakeMessages() {
  auto* const messages = new Messages;
  const auto add = [messages](const char* message, int number, Kind kind,
                              bool is_list, const char* sub) {
    (*messages)[message].fields[number] = {kind, is_list, sub, nullptr};
  };
#define VANTIRO_MESSAGE(type, message) (*messages)[message];
#define VANTIRO_SCALAR(type, message, number, name, kind) \
  add(message, number, Kind::kind, false, "");
#define VANTIRO_LIST(type, message, number, name, kind) \
  add(message, number, Kind::kind, true, "");
#define VANTIRO_TEXT(type, message, number, name, kind) \
  add(message, number, Kind::kind, false, "");
#define VANTIRO_SUB(type, message, number, name, sub) \
  add(message, number, Kind::MESSAGE, false, sub);
#define VANTIRO_SUB_LIST(type, message, number, name, sub) \
  add(message, number, Kind::MESSAGE, true, sub);
#include "all_types.inc"
  for (auto& message : *messages) {
    for (auto& field : message.second.fields) {
      if (field.second.kind == Kind::MESSAGE) {
        field.second.sub = &messages->at(field.second.sub_name);
      }
    }
  }
  return messages;
}

}  // namespace

const MessageModel& FindMessageModel(const std::string& name) {
  static const Messages* const messages = MakeMessages();
  return messages->at(name);
}

}  // namespace tests
}  // namespace vantiro
