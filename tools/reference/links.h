// What things are called on the pages, and where they stand.

#ifndef VANTIRO_TOOLS_REFERENCE_LINKS_H_
#define VANTIRO_TOOLS_REFERENCE_LINKS_H_

#include <google/protobuf/descriptor.h>

#include <string>

namespace vantiro {
namespace reference {

// `name` with places at which a line may break: where words in it begin.
std::string Breakable(const std::string& name);

// The unit's name: that of its file without the ending.
std::string StemOf(const google::protobuf::FileDescriptor* unit);
// The file that holds the unit's page.
std::string PageOf(const google::protobuf::FileDescriptor* unit);

// A type's name without its package, which is also its anchor on the page. That
// of a field or an enum value stands behind that of its type: "Message.field".
template <typename Type>
std::string NameInUnit(const Type* type) {
  return type->full_name().substr(type->file()->package().size() + 1);
}
std::string AnchorOf(const google::protobuf::FieldDescriptor* field);
std::string AnchorOf(const google::protobuf::EnumValueDescriptor* value);

// The address of `anchor` on the page of `unit`, as seen from that of `from`.
// `from` is null on the front page.
std::string Address(const google::protobuf::FileDescriptor* from,
                    const google::protobuf::FileDescriptor* unit,
                    const std::string& anchor);

// A type's name as it is told on the page of `from`: behind the last part of
// its package where that is another one.
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
