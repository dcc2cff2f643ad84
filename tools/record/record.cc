#include "tools/record/record.h"

#include "tools/wire/scalar.h"

namespace vantiro {
namespace tools {
namespace {

bool IsDefault(const FieldValue& value) {
  const auto scalars = value.scalars();
  return value.messages().empty() && value.string_value().empty() &&
         (scalars.empty() || (!value.field().is_repeated() && scalars[0] == 0));
}

}  // namespace

void RemoveDefaults(Record* record) {
  for (auto& entry : record->fields) {
    for (Record& message : entry.second.mutable_messages()) {
      RemoveDefaults(&message);
    }
  }
  if (!record->is_complete) return;
  record->fields.RemoveIf(
      [](const auto& entry) { return IsDefault(entry.second); });
}

void AddDefaults(Record* record) {
  for (int i = 0; record->is_complete && i < record->type->field_count(); ++i) {
    const FieldDescriptor& field = *record->type->field(i);
    if (field.cpp_type() == FieldDescriptor::CPPTYPE_MESSAGE) continue;
    if (record->fields.count(field.number()) == 0) {
      record->fields[field.number()] = DefaultValue(field);
    }
  }
  for (auto& entry : record->fields) {
    for (Record& message : entry.second.mutable_messages()) {
      AddDefaults(&message);
    }
  }
}

}  // namespace tools
}  // namespace vantiro
