// The section of one message or enum on a page.

#ifndef VANTIRO_TOOLS_REFERENCE_TYPE_SECTION_H_
#define VANTIRO_TOOLS_REFERENCE_TYPE_SECTION_H_

#include <google/protobuf/descriptor.h>

#include <string>

#include "tools/schema/schema.h"

namespace vantiro {
namespace reference {

std::string MessageSection(const tools::Schema& schema,
                           const google::protobuf::Descriptor* message);
std::string EnumSection(const tools::Schema& schema,
                        const google::protobuf::EnumDescriptor* type);

}  // namespace reference
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_REFERENCE_TYPE_SECTION_H_
