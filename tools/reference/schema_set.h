// The whole schema as descriptors, and who carries what in it.

#ifndef VANTIRO_TOOLS_REFERENCE_SCHEMA_SET_H_
#define VANTIRO_TOOLS_REFERENCE_SCHEMA_SET_H_

#include <google/protobuf/descriptor.h>
#include <google/protobuf/descriptor.pb.h>

#include <map>
#include <string>
#include <vector>

namespace vantiro {
namespace reference {

class SchemaSet {
 public:
  using Fields = std::vector<const google::protobuf::FieldDescriptor*>;
  using Messages = std::vector<const google::protobuf::Descriptor*>;
  using Enums = std::vector<const google::protobuf::EnumDescriptor*>;

  // Takes the files of `files`, each after those that it imports. False if
  // they don't fit together; the runtime's log says where.
  bool Build(const google::protobuf::FileDescriptorSet& files);

  const std::vector<const google::protobuf::FileDescriptor*>& units() const {
    return units_;
  }
  // The messages that no other carries, in the order of the units.
  Messages Roots() const;
  // The fields whose type `message` is, and those whose type `type` is.
  const Fields& CarriersOf(const google::protobuf::Descriptor* message) const;
  const Fields& UsersOf(const google::protobuf::EnumDescriptor* type) const;

  const google::protobuf::DescriptorPool& pool() const { return pool_; }

 private:
  void NoteFields(const google::protobuf::FileDescriptor* unit);

  google::protobuf::DescriptorPool pool_;
  std::vector<const google::protobuf::FileDescriptor*> units_;
  std::map<const google::protobuf::Descriptor*, Fields> carriers_;
  std::map<const google::protobuf::EnumDescriptor*, Fields> users_;
};

// All messages and enums of `unit`, as they stand in it; those that are nested
// come behind what they are nested in.
SchemaSet::Messages MessagesOf(const google::protobuf::FileDescriptor* unit);
SchemaSet::Enums EnumsOf(const google::protobuf::FileDescriptor* unit);

// The fields of `message` by number.
SchemaSet::Fields FieldsOf(const google::protobuf::Descriptor* message);

}  // namespace reference
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_REFERENCE_SCHEMA_SET_H_
