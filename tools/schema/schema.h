// The schema that is built in: all units, and their types by name.

#ifndef VANTIRO_TOOLS_SCHEMA_SCHEMA_H_
#define VANTIRO_TOOLS_SCHEMA_SCHEMA_H_

#include <google/protobuf/descriptor.h>

#include <map>
#include <stdexcept>
#include <string>
#include <vector>

#include "tools/schema/unit_types.h"

namespace vantiro {
namespace tools {

using google::protobuf::Descriptor;
using google::protobuf::EnumDescriptor;
using google::protobuf::EnumValueDescriptor;
using google::protobuf::FieldDescriptor;
using google::protobuf::FileDescriptor;

// No type has the given name, or several have; `what` lists candidates.
class NameError : public std::runtime_error {
 public:
  using runtime_error::runtime_error;
};

// A type of the schema: one of the two is null.
struct NamedType {
  const Descriptor* message;
  const EnumDescriptor* enumeration;
};

class Schema {
 public:
  // The built-in schema. Thread-safe; made at the first call.
  static const Schema& BuiltIn();

  // The units, by the names of their files.
  const std::vector<const FileDescriptor*>& units() const { return units_; }
  // All types in the order of the units, and as unit_types.h has them.
  const Messages& messages() const { return messages_; }
  const Enums& enums() const { return enums_; }
  // The fields of type `message` or `enumeration`, in the order of `messages`.
  const Fields& CarriersOf(const Descriptor& message) const;
  const Fields& UsersOf(const EnumDescriptor& enumeration) const;
  // The messages that are not the type of any field, in the order of
  // `messages`.
  const Messages& roots() const { return roots_; }

  // The type of that full name, or the only one whose full name ends so
  // ("ZAfDebugUi", "zaf.DebugExif"). "::" stands for ".". Throws a NameError.
  NamedType Find(const std::string& name) const;
  // The same for messages only.
  const Descriptor& FindMessage(const std::string& name) const;

  // The comment above a type, field or enum value as one line; empty if there
  // is none.
  template <typename T>
  static std::string Comment(const T& descriptor) {
    google::protobuf::SourceLocation location;
    if (!descriptor.GetSourceLocation(&location)) return "";
    return OneLine(location.leading_comments);
  }

 private:
  Schema(const void* bytes, size_t size);
  void IndexFields(const Descriptor& message);
  static std::string OneLine(const std::string& comment);

  google::protobuf::DescriptorPool pool_;
  std::vector<const FileDescriptor*> units_;
  Messages messages_;
  Enums enums_;
  Messages roots_;
  std::map<const Descriptor*, Fields> carriers_;
  std::map<const EnumDescriptor*, Fields> users_;
};

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_SCHEMA_SCHEMA_H_
