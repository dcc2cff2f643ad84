#include "tools/reference/search_index.h"

#include "tools/reference/links.h"
#include "tools/schema/unit_types.h"

namespace vantiro {
namespace reference {
namespace {

using google::protobuf::Descriptor;
using google::protobuf::EnumDescriptor;
using google::protobuf::FieldDescriptor;
using google::protobuf::FileDescriptor;
using tools::EnumsOf;
using tools::FieldsOf;
using tools::MessagesOf;

// Names need no escapes.
std::string Quoted(const std::string& name) { return '"' + name + '"'; }

template <typename Type>
std::string Entry(const Type* type, const std::string& kind,
                  const std::string& members) {
  const std::string& package = type->file()->package();
  return "[" + Quoted(StemOf(type->file())) + "," +
         Quoted(package.substr(package.rfind('.') + 1)) + "," + Quoted(kind) +
         "," + Quoted(NameInUnit(type)) + ",[" + members + "]]";
}

std::string EntryOf(const Descriptor* message) {
  std::string members;
  for (const FieldDescriptor* field : FieldsOf(message)) {
    members += (members.empty() ? "" : ",") + Quoted(field->name());
  }
  return Entry(message, "message", members);
}

std::string EntryOf(const EnumDescriptor* type) {
  std::string members;
  for (int i = 0; i < type->value_count(); ++i) {
    members += (members.empty() ? "" : ",") + Quoted(type->value(i)->name());
  }
  return Entry(type, "enum", members);
}

}  // namespace

std::string SearchIndex(const tools::Schema& schema) {
  std::string entries;
  for (const FileDescriptor* unit : schema.units()) {
    for (const Descriptor* message : MessagesOf(unit)) {
      entries += (entries.empty() ? "" : ",\n") + EntryOf(message);
    }
    for (const EnumDescriptor* type : EnumsOf(unit)) {
      entries += (entries.empty() ? "" : ",\n") + EntryOf(type);
    }
  }
  return "[" + entries + "]\n";
}

}  // namespace reference
}  // namespace vantiro
