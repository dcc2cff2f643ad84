// The types of one unit, and the fields of one type.

#ifndef VANTIRO_TOOLS_REFERENCE_UNIT_TYPES_H_
#define VANTIRO_TOOLS_REFERENCE_UNIT_TYPES_H_

#include <google/protobuf/descriptor.h>

#include <vector>

namespace vantiro {
namespace reference {

using Messages = std::vector<const google::protobuf::Descriptor*>;
using Enums = std::vector<const google::protobuf::EnumDescriptor*>;
using Fields = std::vector<const google::protobuf::FieldDescriptor*>;

// All messages and enums of `unit`, as they stand in it; those that are nested
// come behind what they are nested in.
Messages MessagesOf(const google::protobuf::FileDescriptor* unit);
Enums EnumsOf(const google::protobuf::FileDescriptor* unit);

// The fields of `message` by number.
Fields FieldsOf(const google::protobuf::Descriptor* message);

}  // namespace reference
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_REFERENCE_UNIT_TYPES_H_
