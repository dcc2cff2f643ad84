#include "tools/reference/links.h"

#include <cctype>

namespace vantiro {
namespace reference {

using google::protobuf::EnumValueDescriptor;
using google::protobuf::FieldDescriptor;
using google::protobuf::FileDescriptor;

std::string Breakable(const std::string& name) {
  std::string result;
  for (size_t i = 0; i < name.size(); ++i) {
    const bool begins_word =
        i > 1 && std::isupper(static_cast<unsigned char>(name[i])) != 0 &&
        std::islower(static_cast<unsigned char>(name[i - 1])) != 0;
    if (begins_word || name[i] == '.') result += "<wbr>";
    result += name[i];
    if (name[i] == '_') result += "<wbr>";
  }
  return result;
}

std::string StemOf(const FileDescriptor* unit) {
  return unit->name().substr(0, unit->name().rfind('.'));
}

std::string PageOf(const FileDescriptor* unit) {
  return StemOf(unit) + ".html";
}

std::string AnchorOf(const FieldDescriptor* field) {
  return NameInUnit(field->containing_type()) + "." + field->name();
}

std::string AnchorOf(const EnumValueDescriptor* value) {
  // An enum value's full name is in the scope of the enum, not below it.
  return NameInUnit(value->type()) + "." + value->name();
}

std::string Address(const FileDescriptor* from, const FileDescriptor* unit,
                    const std::string& anchor) {
  return (from == unit ? "" : PageOf(unit)) + "#" + anchor;
}

}  // namespace reference
}  // namespace vantiro
