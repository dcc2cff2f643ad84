// The part of a page that tells all of one message or enum.

#ifndef VANTIRO_TOOLS_REFERENCE_TYPE_SECTION_H_
#define VANTIRO_TOOLS_REFERENCE_TYPE_SECTION_H_

#include <google/protobuf/descriptor.h>

#include <string>

#include "tools/schema.h"

namespace vantiro {
namespace reference {

std::string MessageSection(const inspection::Schema& schema,
                           const google::protobuf::Descriptor* message);
std::string EnumSection(const inspection::Schema& schema,
                        const google::protobuf::EnumDescriptor* type);

}  // namespace reference
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_REFERENCE_TYPE_SECTION_H_
