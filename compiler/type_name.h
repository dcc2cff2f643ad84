// How emitted classes call the types of their fields.

#ifndef VANTIRO_COMPILER_TYPE_NAME_H_
#define VANTIRO_COMPILER_TYPE_NAME_H_

#include <google/protobuf/descriptor.h>

#include <string>

namespace vantiro {
namespace compiler {

// The shortest name that finds the message or enum of `field` where the class
// with the field defines its members: without the namespace if the type is of
// the same package, unless a member of the class or of MessageLite has that
// name.
std::string TypeName(const google::protobuf::FieldDescriptor* field);

// The same for what is nested in the message of the class. After the name of an
// enum come those of its functions and constants, with "_" between.
std::string TypeName(const google::protobuf::Descriptor* nested);
std::string TypeName(const google::protobuf::EnumDescriptor* nested);

// The same within the class itself, which knows its nested messages by the
// names that they have in the schema.
std::string TypeNameInClass(const google::protobuf::FieldDescriptor* field);

}  // namespace compiler
}  // namespace vantiro

#endif  // VANTIRO_COMPILER_TYPE_NAME_H_
