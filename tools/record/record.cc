#include "tools/record/record.h"

#include <string_view>

#include "tools/wire/scalar.h"

namespace vantiro {
namespace tools {
namespace {

using google::protobuf::UnknownFieldSet;
using google::protobuf::internal::WireFormatLite;

void AddUnknown(const Node& node, std::string_view bytes,
                UnknownFieldSet* unknown) {
  switch (node.wire_type) {
    case WireFormatLite::WIRETYPE_VARINT:
      unknown->AddVarint(node.number, node.elements[0].bits);
      break;
    case WireFormatLite::WIRETYPE_FIXED64:
      unknown->AddFixed64(node.number, node.elements[0].bits);
      break;
    case WireFormatLite::WIRETYPE_FIXED32:
      unknown->AddFixed32(node.number,
                          static_cast<uint32_t>(node.elements[0].bits));
      break;
    case WireFormatLite::WIRETYPE_START_GROUP: {
      UnknownFieldSet* const group = unknown->AddGroup(node.number);
      for (const Node& child : node.children) AddUnknown(child, bytes, group);
      break;
    }
    default:
      unknown->AddLengthDelimited(
          node.number,
          std::string(bytes.substr(node.value.offset, node.value.size)));
  }
}

void MergeNodes(const std::vector<Node>& nodes, std::string_view bytes,
                Record* record) {
  for (const Node& node : nodes) {
    if (node.field == nullptr) {
      AddUnknown(node, bytes, &record->unknown);
      continue;
    }
    const FieldDescriptor& field = *node.field;
    FieldValue* const value = record->Mutable(field);
    if (field.cpp_type() == FieldDescriptor::CPPTYPE_MESSAGE) {
      if (field.is_repeated() || value->messages.empty()) {
        value->messages.emplace_back(*field.message_type());
      }
      Record* const message = &value->messages.back();
      MergeNodes(node.children, bytes, message);
      if (!node.is_complete) message->is_complete = false;
    } else if (field.cpp_type() == FieldDescriptor::CPPTYPE_STRING) {
      value->string_value = bytes.substr(node.value.offset, node.value.size);
    } else {
      if (!field.is_repeated()) value->scalars.clear();
      for (const Element& element : node.elements) {
        value->scalars.push_back(element.bits);
      }
    }
  }
}

bool IsDefault(const FieldValue& value) {
  return value.messages.empty() && value.string_value.empty() &&
         (value.scalars.empty() ||
          (!value.field->is_repeated() && value.scalars[0] == 0));
}

}  // namespace

FieldValue DefaultValue(const FieldDescriptor& field) {
  FieldValue value;
  value.field = &field;
  if (IsScalar(field) && !field.is_repeated()) value.scalars.push_back(0);
  return value;
}

Record MakeRecord(const RecordTree& tree) {
  Record record(*tree.type);
  record.is_complete = tree.ok();
  MergeNodes(tree.nodes, tree.bytes, &record);
  return record;
}

void RemoveDefaults(Record* record) {
  for (auto& entry : record->fields) {
    for (Record& message : entry.second.messages) RemoveDefaults(&message);
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
    for (Record& message : entry.second.messages) AddDefaults(&message);
  }
}

}  // namespace tools
}  // namespace vantiro
