#include "compiler/type_name.h"

#include <algorithm>
#include <cctype>
#include <iterator>

#include "compiler/names.h"

namespace vantiro {
namespace compiler {
namespace {

using google::protobuf::Descriptor;
using google::protobuf::EnumDescriptor;
using google::protobuf::FieldDescriptor;

// How the members of MessageLite and of all emitted classes begin that have a
// capital letter first, and that so could hide a type.
constexpr const char* kMemberPrefixes[] = {
    "Append", "ArenaDtor", "ByteSize", "Check",   "Clear", "Copy",
    "Create", "Debug",     "Get",      "InMoa",   "Init",  "Internal",
    "IsInit", "Log",       "Merge",    "Message", "New",   "OnDemand",
    "Parse",  "Scalars",   "Serial",   "Set",     "Short", "Swap",
    "Unsafe", "Utf8",
};

bool StartsWith(const std::string& text, const std::string& start) {
  return text.compare(0, start.size(), start) == 0;
}

// Whether a nested enum gives its class a member of that name, or one that
// begins with the name and "_", or may do so.
bool DeclaresInClass(const EnumDescriptor* enum_type, const std::string& name) {
  const std::string& nested = enum_type->name();
  if (name == nested || StartsWith(name, nested + "_")) return true;
  if (StartsWith(nested, name + "_")) return true;
  for (int i = 0; i < enum_type->value_count(); ++i) {
    const std::string& value = enum_type->value(i)->name();
    if (value == name || StartsWith(value, name + "_")) return true;
  }
  return false;
}

// Whether members of the class of `message` can find no other thing by `name`.
bool IsSafeInClass(const std::string& name, const Descriptor* message) {
  if (std::isupper(static_cast<unsigned char>(name[0])) == 0) return false;
  if (message->FindNestedTypeByName(name) != nullptr) return false;
  for (int i = 0; i < message->enum_type_count(); ++i) {
    if (DeclaresInClass(message->enum_type(i), name)) return false;
  }
  return std::none_of(
      std::begin(kMemberPrefixes), std::end(kMemberPrefixes),
      [&name](const char* prefix) { return StartsWith(name, prefix); });
}

template <typename Type>
std::string NameOf(const Type* type, const std::string& name,
                   const Descriptor* message) {
  const bool is_near = type->file()->package() == message->file()->package();
  return is_near && IsSafeInClass(name, message) ? name : QualifiedName(type);
}

}  // namespace

std::string TypeName(const FieldDescriptor* field) {
  const Descriptor* const message = field->containing_type();
  return field->enum_type() != nullptr
             ? NameOf(field->enum_type(), ClassName(field->enum_type()),
                      message)
             : NameOf(field->message_type(), ClassName(field->message_type()),
                      message);
}

std::string TypeName(const Descriptor* nested) {
  return NameOf(nested, ClassName(nested), nested->containing_type());
}

std::string TypeName(const EnumDescriptor* nested) {
  return NameOf(nested, ClassName(nested), nested->containing_type());
}

std::string TypeNameInClass(const FieldDescriptor* field) {
  const Descriptor* const type = field->message_type();
  const bool is_nested =
      type != nullptr && type->containing_type() == field->containing_type();
  return is_nested ? NestedName(type) : TypeName(field);
}

}  // namespace compiler
}  // namespace vantiro
