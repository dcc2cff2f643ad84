#include "tools/schema/unit_types.h"

#include <algorithm>

namespace vantiro {
namespace tools {
namespace {

using google::protobuf::Descriptor;
using google::protobuf::FieldDescriptor;
using google::protobuf::FileDescriptor;

void AddWithNested(const Descriptor* message, Messages* messages) {
  messages->push_back(message);
  for (int i = 0; i < message->nested_type_count(); ++i) {
    AddWithNested(message->nested_type(i), messages);
  }
}

}  // namespace

Messages MessagesOf(const FileDescriptor* unit) {
  Messages messages;
  for (int i = 0; i < unit->message_type_count(); ++i) {
    AddWithNested(unit->message_type(i), &messages);
  }
  return messages;
}

Enums EnumsOf(const FileDescriptor* unit) {
  Enums enums;
  for (int i = 0; i < unit->enum_type_count(); ++i) {
    enums.push_back(unit->enum_type(i));
  }
  for (const Descriptor* message : MessagesOf(unit)) {
    for (int i = 0; i < message->enum_type_count(); ++i) {
      enums.push_back(message->enum_type(i));
    }
  }
  return enums;
}

Fields FieldsOf(const Descriptor* message) {
  Fields fields;
  for (int i = 0; i < message->field_count(); ++i) {
    fields.push_back(message->field(i));
  }
  std::sort(fields.begin(), fields.end(),
            [](const FieldDescriptor* one, const FieldDescriptor* other) {
              return one->number() < other->number();
            });
  return fields;
}

}  // namespace tools
}  // namespace vantiro
