#include "tools/reference/schema_set.h"

#include <algorithm>

namespace vantiro {
namespace reference {
namespace {

using google::protobuf::Descriptor;
using google::protobuf::EnumDescriptor;
using google::protobuf::FieldDescriptor;
using google::protobuf::FileDescriptor;

void AddWithNested(const Descriptor* message, SchemaSet::Messages* messages) {
  messages->push_back(message);
  for (int i = 0; i < message->nested_type_count(); ++i) {
    AddWithNested(message->nested_type(i), messages);
  }
}

template <typename Map, typename Type>
const SchemaSet::Fields& Find(const Map& map, const Type* type) {
  static const auto* const kNone = new SchemaSet::Fields();
  const auto found = map.find(type);
  return found == map.end() ? *kNone : found->second;
}

}  // namespace

bool SchemaSet::Build(const google::protobuf::FileDescriptorSet& files) {
  for (const auto& file : files.file()) {
    const FileDescriptor* unit = pool_.BuildFile(file);
    if (unit == nullptr) return false;
    units_.push_back(unit);
    NoteFields(unit);
  }
  return true;
}

void SchemaSet::NoteFields(const FileDescriptor* unit) {
  for (const Descriptor* message : MessagesOf(unit)) {
    for (const FieldDescriptor* field : FieldsOf(message)) {
      if (field->message_type() != nullptr) {
        carriers_[field->message_type()].push_back(field);
      } else if (field->enum_type() != nullptr) {
        users_[field->enum_type()].push_back(field);
      }
    }
  }
}

SchemaSet::Messages SchemaSet::Roots() const {
  Messages roots;
  for (const FileDescriptor* unit : units_) {
    for (const Descriptor* message : MessagesOf(unit)) {
      if (CarriersOf(message).empty()) roots.push_back(message);
    }
  }
  return roots;
}

const SchemaSet::Fields& SchemaSet::CarriersOf(
    const Descriptor* message) const {
  return Find(carriers_, message);
}

const SchemaSet::Fields& SchemaSet::UsersOf(const EnumDescriptor* type) const {
  return Find(users_, type);
}

SchemaSet::Messages MessagesOf(const FileDescriptor* unit) {
  SchemaSet::Messages messages;
  for (int i = 0; i < unit->message_type_count(); ++i) {
    AddWithNested(unit->message_type(i), &messages);
  }
  return messages;
}

SchemaSet::Enums EnumsOf(const FileDescriptor* unit) {
  SchemaSet::Enums enums;
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

SchemaSet::Fields FieldsOf(const Descriptor* message) {
  SchemaSet::Fields fields;
  for (int i = 0; i < message->field_count(); ++i) {
    fields.push_back(message->field(i));
  }
  std::sort(fields.begin(), fields.end(),
            [](const FieldDescriptor* one, const FieldDescriptor* other) {
              return one->number() < other->number();
            });
  return fields;
}

}  // namespace reference
}  // namespace vantiro
