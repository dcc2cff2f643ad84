// The schema that is built in: all units, and their types by name.

#ifndef VANTIRO_TOOLS_SCHEMA_H_
#define VANTIRO_TOOLS_SCHEMA_H_

#include <google/protobuf/descriptor.h>

#include <map>
#include <stdexcept>
#include <string>
#include <vector>

namespace vantiro {
namespace inspection {

using google::protobuf::Descriptor;
using google::protobuf::EnumDescriptor;
using google::protobuf::EnumValueDescriptor;
using google::protobuf::FieldDescriptor;
using google::protobuf::FileDescriptor;

// No type has the given name, or several have; `what` lists the candidates.
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
  using Fields = std::vector<const FieldDescriptor*>;

  // The built-in schema. Built at the first call, from any thread.
  static const Schema& BuiltIn();

  // The units, by the names of their files.
  const std::vector<const FileDescriptor*>& units() const { return units_; }
  // All messages, nested ones behind the one that they stand in, in the order
  // of the units and of declaration.
  const std::vector<const Descriptor*>& messages() const { return messages_; }
  const std::vector<const EnumDescriptor*>& enums() const { return enums_; }
  // The fields whose type `message` or `enumeration` is, in the order of
  // `messages`.
  const Fields& CarriersOf(const Descriptor& message) const;
  const Fields& UsersOf(const EnumDescriptor& enumeration) const;
  // The messages that no other carries, in the order of `messages`.
  const std::vector<const Descriptor*>& roots() const { return roots_; }

  // The type of a full name, or of the end of one that no other type shares
  // ("ZAfDebugUi", "zaf.DebugExif"). "::" counts as ".". Throws a NameError.
  NamedType Find(const std::string& name) const;
  // The same among messages only.
  const Descriptor& FindMessage(const std::string& name) const;

  // The comment above a type, field or enum value, without the comment signs
  // and with one space between words; empty if there is none.
  template <typename T>
  static std::string Comment(const T& descriptor) {
    google::protobuf::SourceLocation location;
    if (!descriptor.GetSourceLocation(&location)) return "";
    return Flow(location.leading_comments);
  }

 private:
  Schema(const void* bytes, size_t size);
  void Collect(const Descriptor& message);
  void NoteFields(const Descriptor& message);
  static std::string Flow(const std::string& comment);

  google::protobuf::DescriptorPool pool_;
  std::vector<const FileDescriptor*> units_;
  std::vector<const Descriptor*> messages_;
  std::vector<const EnumDescriptor*> enums_;
  std::vector<const Descriptor*> roots_;
  std::map<const Descriptor*, Fields> carriers_;
  std::map<const EnumDescriptor*, Fields> users_;
};

}  // namespace inspection
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_SCHEMA_H_
