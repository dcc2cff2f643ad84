// The tag of a field.

#ifndef VANTIRO_TOOLS_WIRE_WIRE_TAG_H_
#define VANTIRO_TOOLS_WIRE_WIRE_TAG_H_

#include <google/protobuf/descriptor.h>

#include <string>

namespace vantiro {
namespace tools {

// The bytes of the tag with which the field is written, in hex: "82 01".
std::string WireTag(const google::protobuf::FieldDescriptor& field);

// The wire type in that tag: "varint", "fixed32", "fixed64" or
// "length-delimited".
std::string WireTypeName(const google::protobuf::FieldDescriptor& field);

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_WIRE_WIRE_TAG_H_
