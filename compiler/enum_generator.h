// Emits an enum: its C++ type and its functions.

#ifndef VANTIRO_COMPILER_ENUM_GENERATOR_H_
#define VANTIRO_COMPILER_ENUM_GENERATOR_H_

#include <google/protobuf/descriptor.h>

#include <string>

namespace vantiro {
namespace compiler {

// The enum and the declarations of its functions.
std::string EnumDeclaration(const google::protobuf::EnumDescriptor* enum_type);

// What marks the enum as one of Protocol Buffers, for the runtime's namespace.
std::string EnumTrait(const google::protobuf::EnumDescriptor* enum_type);

// The enum's tables and functions.
std::string EnumDefinition(const google::protobuf::EnumDescriptor* enum_type);

}  // namespace compiler
}  // namespace vantiro

#endif  // VANTIRO_COMPILER_ENUM_GENERATOR_H_
