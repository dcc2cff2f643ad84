// How a field is told from others in the bytes.

#ifndef VANTIRO_TOOLS_WIRE_TAG_H_
#define VANTIRO_TOOLS_WIRE_TAG_H_

#include <google/protobuf/descriptor.h>

#include <string>

namespace vantiro {
namespace inspection {

// The bytes of the tag that the field is written with, in hex: "82 01".
std::string WireTag(const google::protobuf::FieldDescriptor& field);

// What follows the tag, in words.
std::string WireTypeName(const google::protobuf::FieldDescriptor& field);

}  // namespace inspection
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_WIRE_TAG_H_
