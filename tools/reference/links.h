// The names and addresses of types and fields on the pages.

#ifndef VANTIRO_TOOLS_REFERENCE_LINKS_H_
#define VANTIRO_TOOLS_REFERENCE_LINKS_H_

#include <google/protobuf/descriptor.h>

#include <string>

namespace vantiro {
namespace reference {

// `name` with possible line breaks between its words.
std::string Breakable(const std::string& name);

// The name of the unit's file without its extension.
std::string StemOf(const google::protobuf::FileDescriptor* unit);
// The file name of the unit's page.
std::string PageOf(const google::protobuf::FileDescriptor* unit);

// A type's name without its package, which is also its anchor on the page. The
// anchor of a field or an enum value is "Type.name".
template <typename Type>
std::string NameInUnit(const Type* type) {
  return type->full_name().substr(type->file()->package().size() + 1);
}
std::string AnchorOf(const google::protobuf::FieldDescriptor* field);
std::string AnchorOf(const google::protobuf::EnumValueDescriptor* value);

// The address of `anchor` on the page of `unit`, relative to the page of
// `from`, or to the front page if that is null.
std::string Address(const google::protobuf::FileDescriptor* from,
                    const google::protobuf::FileDescriptor* unit,
                    const std::string& anchor);

// A type's name on the page of `from`: after the last part of its package if
// that is not the package of `from`.
template <typename Type>
std::string ShownName(const google::protobuf::FileDescriptor* from,
                      const Type* type) {
  const std::string& package = type->file()->package();
  std::string name = NameInUnit(type);
  if (from != nullptr && from->package() == package) return name;
  return package.substr(package.rfind('.') + 1) + "." + name;
}

// A link to `type`, a message or an enum, from the page of `from`.
template <typename Type>
std::string LinkTo(const google::protobuf::FileDescriptor* from,
                   const Type* type) {
  return "<a href=\"" + Address(from, type->file(), NameInUnit(type)) + "\">" +
         Breakable(ShownName(from, type)) + "</a>";
}

}  // namespace reference
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_REFERENCE_LINKS_H_
