// The names that emitted code gives to what a schema declares: those of the
// 3.9.1 compiler.

#ifndef VANTIRO_COMPILER_NAMES_H_
#define VANTIRO_COMPILER_NAMES_H_

#include <google/protobuf/descriptor.h>

#include <string>
#include <vector>

namespace vantiro {
namespace compiler {

// The name of a message's class: its path in the unit joined by underscores.
// The name of an enum: the same. A name that is a keyword of C++ gets "_"
// appended, here and below.
std::string ClassName(const google::protobuf::Descriptor* message);
std::string ClassName(const google::protobuf::EnumDescriptor* enum_type);

// The name of a nested message or enum in the class of the message around it.
std::string NestedName(const google::protobuf::Descriptor* message);
std::string NestedName(const google::protobuf::EnumDescriptor* enum_type);

// The name of a field in its accessors and member: in lower case.
std::string FieldName(const google::protobuf::FieldDescriptor* field);

// The name of a value of a nested enum in that class.
std::string NestedName(const google::protobuf::EnumValueDescriptor* value);

// What the names of an enum's values and constants begin with in the namespace:
// nothing, or "<Enum>_" for a nested enum.
std::string ValuePrefix(const google::protobuf::EnumDescriptor* enum_type);
std::string ValueName(const google::protobuf::EnumValueDescriptor* value);

// The class or enum with all its namespaces, from "::" on.
std::string QualifiedName(const google::protobuf::Descriptor* message);
std::string QualifiedName(const google::protobuf::EnumDescriptor* enum_type);

// The class or enum in a function of its own: with its namespaces if a
// parameter or variable could have its name. Those begin in lower case, or are
// "T".
std::string SafeName(const google::protobuf::Descriptor* message);
std::string SafeName(const google::protobuf::EnumDescriptor* enum_type);

// The same for a nested enum in a function of the class around it.
std::string SafeNestedName(const google::protobuf::EnumDescriptor* enum_type);

// "_<Class>_default_instance_"; with all its namespaces; in the class, where a
// member could have that name.
std::string DefaultInstanceName(const google::protobuf::Descriptor* message);
std::string QualifiedDefaultInstanceName(
    const google::protobuf::Descriptor* message);
std::string SafeDefaultInstanceName(
    const google::protobuf::Descriptor* message);

// The struct in the class that holds its scalars, and the member of that type:
// "Scalars" and "scalars_", with more underscores if fields, nested messages or
// enums have these names.
std::string ScalarsType(const google::protobuf::Descriptor* message);
std::string ScalarsName(const google::protobuf::Descriptor* message);

// "scc_info_<Class>_<unit>_2eproto".
std::string SccInfoName(const google::protobuf::Descriptor* message);

// "k<Field>FieldNumber", the field's name in camel case.
std::string FieldNumberName(const google::protobuf::FieldDescriptor* field);

// The unit's file name without ".proto".
std::string Stem(const google::protobuf::FileDescriptor* file);

// "VANTIRO_PROTOS_z3a_5fcommon_2eproto" for z3a_common.proto.
std::string HeaderGuard(const google::protobuf::FileDescriptor* file);

// The names in the package, each of which is a namespace.
std::vector<std::string> PackageParts(
    const google::protobuf::FileDescriptor* file);

// "z3a_debug_data::zaf" for the package z3a_debug_data.zaf, and the lines that
// open and close these namespaces.
std::string Namespace(const google::protobuf::FileDescriptor* file);
std::string OpenNamespaces(const google::protobuf::FileDescriptor* file);
std::string CloseNamespaces(const google::protobuf::FileDescriptor* file);

// What the source of the unit calls the namespace ::vantiro::internal:
// "internal", with more underscores if the schema has this name.
std::string InternalNamespace(const google::protobuf::FileDescriptor* file);

// Whether the unit's text sets cc_enable_arenas. Unset means off, as it did in
// 3.9.1, although later descriptors default it to true.
bool HasArenas(const google::protobuf::FileDescriptor* file);

}  // namespace compiler
}  // namespace vantiro

#endif  // VANTIRO_COMPILER_NAMES_H_
