#include "compiler/names.h"

#include <google/protobuf/descriptor.pb.h>
#include <google/protobuf/stubs/strutil.h>

#include <cctype>
#include <vector>

namespace vantiro {
namespace compiler {
namespace {

using google::protobuf::Descriptor;
using google::protobuf::EnumDescriptor;
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

std::string Qualify(const FileDescriptor* file, const std::string& name) {
  const std::string scope = Namespace(file);
  return scope.empty() ? "::" + name : "::" + scope + "::" + name;
}

}  // namespace

std::string ClassName(const Descriptor* message) {
  const Descriptor* parent = message->containing_type();
  return parent == nullptr ? message->name()
                           : ClassName(parent) + "_" + message->name();
}

std::string QualifiedName(const Descriptor* message) {
  return Qualify(message->file(), ClassName(message));
}

std::string QualifiedName(const EnumDescriptor* enum_type) {
  return Qualify(enum_type->file(), enum_type->name());
}

std::string DefaultInstanceName(const Descriptor* message) {
  return "_" + ClassName(message) + "_default_instance_";
}

std::string SetUpRecordName(const Descriptor* message) {
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
  const std::string& name = file->name();
  return name.substr(0, name.rfind(".proto"));
}

std::string HeaderGuard(const FileDescriptor* file) {
  std::string guard = "VANTIRO_PROTOS_";
  for (const char c : Stem(file)) {
    const auto byte = static_cast<unsigned char>(c);
    guard +=
        std::isalnum(byte) != 0 ? static_cast<char>(std::toupper(byte)) : '_';
  }
  return guard + "_PB_H_";
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

bool HasArenas(const FileDescriptor* file) {
  return file->options().has_cc_enable_arenas() &&
         file->options().cc_enable_arenas();
}

}  // namespace compiler
}  // namespace vantiro
