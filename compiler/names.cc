#include "compiler/names.h"

#include <google/protobuf/descriptor.pb.h>
#include <google/protobuf/stubs/strutil.h>

#include <cctype>

#include "compiler/reserved_names.h"

namespace vantiro {
namespace compiler {
namespace {

using google::protobuf::Descriptor;
using google::protobuf::EnumDescriptor;
using google::protobuf::EnumValueDescriptor;
using google::protobuf::FieldDescriptor;
using google::protobuf::FileDescriptor;

// Letters and digits stay; of other characters the code is written in
// hexadecimal behind an underscore.
std::string Mangle(const std::string& name) {
  std::string result;
  for (const char c : name) {
    if (std::isalnum(static_cast<unsigned char>(c)) != 0) {
      result += c;
    } else {
      result += google::protobuf::StrCat(
          "_", google::protobuf::strings::Hex(static_cast<unsigned char>(c)));
    }
  }
  return result;
}

std::string ResolveKeyword(const std::string& name) {
  return IsKeyword(name) ? name + "_" : name;
}

std::string Qualify(const FileDescriptor* file, const std::string& name) {
  const std::string scope = Namespace(file);
  return scope.empty() ? "::" + name : "::" + scope + "::" + name;
}

bool IsHiddenInFunctions(const std::string& name) {
  return std::isupper(static_cast<unsigned char>(name[0])) == 0 || name == "T";
}

// Whether a field, a nested message or enum, a value of such an enum or the
// class itself has the name.
bool IsMember(const Descriptor* message, const std::string& name) {
  if (name == ClassName(message)) return true;
  if (message->FindEnumTypeByName(name) != nullptr) return true;
  if (message->FindEnumValueByName(name) != nullptr) return true;
  for (int i = 0; i < message->nested_type_count(); ++i) {
    if (name == NestedName(message->nested_type(i))) return true;
  }
  for (int i = 0; i < message->field_count(); ++i) {
    const std::string field = FieldName(message->field(i));
    if (name == field || name == field + "_") return true;
  }
  return false;
}

bool IsTypeOf(const Descriptor* message, const std::string& name) {
  if (name == message->name()) return true;
  if (message->FindEnumTypeByName(name) != nullptr) return true;
  for (int i = 0; i < message->nested_type_count(); ++i) {
    if (IsTypeOf(message->nested_type(i), name)) return true;
  }
  return false;
}

// Whether a namespace, type or enum value of the unit or its imports has the
// name.
bool IsDeclared(const FileDescriptor* file, const std::string& name) {
  for (const std::string& part : PackageParts(file)) {
    if (name == part) return true;
  }
  for (int i = 0; i < file->message_type_count(); ++i) {
    if (IsTypeOf(file->message_type(i), name)) return true;
  }
  for (int i = 0; i < file->enum_type_count(); ++i) {
    const EnumDescriptor* const enum_type = file->enum_type(i);
    if (name == enum_type->name()) return true;
    if (enum_type->FindValueByName(name) != nullptr) return true;
  }
  for (int i = 0; i < file->dependency_count(); ++i) {
    if (IsDeclared(file->dependency(i), name)) return true;
  }
  return false;
}

std::string FreeMemberName(const Descriptor* message, std::string name) {
  while (IsMember(message, name)) name += '_';
  return name;
}

}  // namespace

std::string ClassName(const Descriptor* message) {
  const Descriptor* parent = message->containing_type();
  return ResolveKeyword(parent == nullptr
                            ? message->name()
                            : ClassName(parent) + "_" + message->name());
}

std::string ClassName(const EnumDescriptor* enum_type) {
  const Descriptor* const parent = enum_type->containing_type();
  return parent == nullptr ? ResolveKeyword(enum_type->name())
                           : ClassName(parent) + "_" + enum_type->name();
}

std::string NestedName(const Descriptor* message) {
  return ResolveKeyword(message->name());
}

std::string NestedName(const EnumDescriptor* enum_type) {
  return ResolveKeyword(enum_type->name());
}

std::string NestedName(const EnumValueDescriptor* value) {
  return ResolveKeyword(value->name());
}

std::string FieldName(const FieldDescriptor* field) {
  return ResolveKeyword(field->lowercase_name());
}

std::string ValuePrefix(const EnumDescriptor* enum_type) {
  return enum_type->containing_type() == nullptr ? ""
                                                 : ClassName(enum_type) + "_";
}

std::string ValueName(const EnumValueDescriptor* value) {
  return ValuePrefix(value->type()) + ResolveKeyword(value->name());
}

std::string QualifiedName(const Descriptor* message) {
  return Qualify(message->file(), ClassName(message));
}

std::string QualifiedName(const EnumDescriptor* enum_type) {
  return Qualify(enum_type->file(), ClassName(enum_type));
}

std::string SafeName(const Descriptor* message) {
  const std::string name = ClassName(message);
  return IsHiddenInFunctions(name) ? QualifiedName(message) : name;
}

std::string SafeName(const EnumDescriptor* enum_type) {
  const std::string name = ClassName(enum_type);
  return IsHiddenInFunctions(name) ? QualifiedName(enum_type) : name;
}

std::string SafeNestedName(const EnumDescriptor* enum_type) {
  const std::string name = NestedName(enum_type);
  return IsHiddenInFunctions(name) ? QualifiedName(enum_type) : name;
}

std::string DefaultInstanceName(const Descriptor* message) {
  return "_" + ClassName(message) + "_default_instance_";
}

std::string QualifiedDefaultInstanceName(const Descriptor* message) {
  return Qualify(message->file(), DefaultInstanceName(message));
}

std::string SafeDefaultInstanceName(const Descriptor* message) {
  return IsHiddenInFunctions(ClassName(message))
             ? QualifiedDefaultInstanceName(message)
             : DefaultInstanceName(message);
}

std::string ScalarsType(const Descriptor* message) {
  return FreeMemberName(message, "Scalars");
}

std::string ScalarsName(const Descriptor* message) {
  return FreeMemberName(message, "scalars_");
}

std::string SccInfoName(const Descriptor* message) {
  return "scc_info_" + ClassName(message) + "_" +
         Mangle(message->file()->name());
}

// A letter is capital at the start and behind anything that is no letter.
std::string FieldNumberName(const FieldDescriptor* field) {
  std::string camel;
  bool is_start = true;
  for (const char c : field->name()) {
    const auto byte = static_cast<unsigned char>(c);
    if (std::isalnum(byte) != 0) {
      camel += is_start ? static_cast<char>(std::toupper(byte)) : c;
    }
    is_start = std::isalpha(byte) == 0;
  }
  return "k" + camel + "FieldNumber";
}

std::string Stem(const FileDescriptor* file) {
  return google::protobuf::StripSuffixString(file->name(), ".proto");
}

std::string HeaderGuard(const FileDescriptor* file) {
  return "VANTIRO_PROTOS_" + Mangle(file->name());
}

std::vector<std::string> PackageParts(const FileDescriptor* file) {
  std::vector<std::string> parts(1);
  for (const char c : file->package()) {
    if (c == '.') {
      parts.emplace_back();
    } else {
      parts.back() += c;
    }
  }
  if (parts.back().empty()) parts.pop_back();
  return parts;
}

std::string Namespace(const FileDescriptor* file) {
  std::string result;
  for (const std::string& part : PackageParts(file)) {
    result += (result.empty() ? "" : "::") + part;
  }
  return result;
}

std::string OpenNamespaces(const FileDescriptor* file) {
  std::string result;
  for (const std::string& part : PackageParts(file)) {
    result += "namespace " + part + " {\n";
  }
  return result;
}

std::string CloseNamespaces(const FileDescriptor* file) {
  std::string result;
  for (const std::string& part : PackageParts(file)) {
    result = "}  // namespace " + part + "\n" + result;
  }
  return result;
}

std::string InternalNamespace(const FileDescriptor* file) {
  std::string name = "internal";
  while (IsDeclared(file, name)) name += '_';
  return name;
}

bool HasArenas(const FileDescriptor* file) {
  return file->options().has_cc_enable_arenas() &&
         file->options().cc_enable_arenas();
}

}  // namespace compiler
}  // namespace vantiro
