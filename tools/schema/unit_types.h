// The types of one unit, and the fields of one type.

#ifndef VANTIRO_TOOLS_SCHEMA_UNIT_TYPES_H_
#define VANTIRO_TOOLS_SCHEMA_UNIT_TYPES_H_

#include <google/protobuf/descriptor.h>

#include <vector>

namespace vantiro {
namespace tools {

using Messages = std::vector<const google::protobuf::Descriptor*>;
using Enums = std::vector<const google::protobuf::EnumDescriptor*>;
using Fields = std::vector<const google::protobuf::FieldDescriptor*>;

// All messages of `unit` in the order of declaration, each before those nested
// in it.
Messages MessagesOf(const google::protobuf::FileDescriptor* unit);
// All enums of `unit`: those outside messages first.
Enums EnumsOf(const google::protobuf::FileDescriptor* unit);

// The fields of `message` by number.
Fields FieldsOf(const google::protobuf::Descriptor* message);

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_SCHEMA_UNIT_TYPES_H_
