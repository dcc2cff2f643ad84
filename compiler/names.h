// The names that emitted code gives to what a schema declares: those of the
// 3.9.1 compiler.

#ifndef VANTIRO_COMPILER_NAMES_H_
#define VANTIRO_COMPILER_NAMES_H_

#include <google/protobuf/descriptor.h>

#include <string>

namespace vantiro {
namespace compiler {

// The name of a message's class: its path in the unit joined by underscores.
std::string ClassName(const google::protobuf::Descriptor* message);

// The class or enum with all its namespaces, from "::" on.
std::string QualifiedName(const google::protobuf::Descriptor* message);
std::string QualifiedName(const google::protobuf::EnumDescriptor* enum_type);

// "_<Class>_default_instance_".
std::string DefaultInstanceName(const google::protobuf::Descriptor* message);

// "scc_info_<Class>_<unit>_2eproto".
std::string SetUpRecordName(const google::protobuf::Descriptor* message);

// "k<Field>FieldNumber", the field's name in camel case.
std::string FieldNumberName(const google::protobuf::FieldDescriptor* field);

// The unit's file name without ".proto".
std::string Stem(const google::protobuf::FileDescriptor* file);

// "Z3A_COMMON_PB_H_" for z3a_common.proto, with a prefix of our own.
std::string HeaderGuard(const google::protobuf::FileDescriptor* file);

// "z3a_debug_data::zaf" for the package z3a_debug_data.zaf, and the lines that
// open and close these namespaces.
std::string Namespace(const google::protobuf::FileDescriptor* file);
std::string OpenNamespaces(const google::protobuf::FileDescriptor* file);
std::string CloseNamespaces(const google::protobuf::FileDescriptor* file);

// Whether the unit's text sets cc_enable_arenas. Unset means off, as it did in
// 3.9.1, although later descriptors default it to true.
bool HasArenas(const google::protobuf::FileDescriptor* file);

}  // namespace compiler
}  // namespace vantiro

#endif  // VANTIRO_COMPILER_NAMES_H_
