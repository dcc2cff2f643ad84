#include "compiler/validator.h"

#include <google/protobuf/descriptor.pb.h>

#include <cctype>
#include <set>
#include <sstream>

namespace vantiro {
namespace compiler {
namespace {

using google::protobuf::Descriptor;
using google::protobuf::EnumDescriptor;
using google::protobuf::FieldDescriptor;
using google::protobuf::FileDescriptor;
using google::protobuf::FileOptions;

// A tag of more than two bytes would need a field number above this.
constexpr int kMaxFieldNumber = 2047;

const std::set<std::string>& CppKeywords() {
  static const auto* const keywords =
      new std::set<std::string>{"alignas",
                                "alignof",
                                "and",
                                "and_eq",
                                "asm",
                                "auto",
                                "bitand",
                                "bitor",
                                "bool",
                                "break",
                                "case",
                                "catch",
                                "char",
                                "class",
                                "compl",
                                "const",
                                "constexpr",
                                "const_cast",
                                "continue",
                                "decltype",
                                "default",
                                "delete",
                                "do",
                                "double",
                                "dynamic_cast",
                                "else",
                                "enum",
                                "explicit",
                                "export",
                                "extern",
                                "false",
                                "float",
                                "for",
                                "friend",
                                "goto",
                                "if",
                                "inline",
                                "int",
                                "long",
                                "mutable",
                                "namespace",
                                "new",
                                "noexcept",
                                "not",
                                "not_eq",
                                "nullptr",
                                "operator",
                                "or",
                                "or_eq",
                                "private",
                                "protected",
                                "public",
                                "register",
                                "return",
                                "short",
                                "signed",
                                "sizeof",
                                "static",
                                "static_assert",
                                "struct",
                                "switch",
                                "template",
                                "this",
                                "thread_local",
                                "throw",
                                "true",
                                "try",
                                "typedef",
                                "typeid",
                                "typename",
                                "union",
                                "unsigned",
                                "using",
                                "virtual",
                                "void",
                                "volatile",
                                "wchar_t",
                                "while",
                                "xor",
                                "xor_eq",
                                "reinterpret_cast",
                                "static_cast",
                                "NULL"};
  return *keywords;
}

// Variables and members that a field's accessor or member would hide.
const std::set<std::string>& OwnNames() {
  static const auto* const names =
      new std::set<std::string>{"p", "scalars", "size", "writer"};
  return *names;
}

class Finder {
 public:
  explicit Finder(std::vector<std::string>* faults) : faults_(faults) {}

  void Look(const FileDescriptor* file) {
    if (file->syntax() != FileDescriptor::SYNTAX_PROTO3) {
      Add(file, "syntax must be proto3");
    }
    if (file->options().optimize_for() != FileOptions::LITE_RUNTIME) {
      Add(file, "optimize_for must be LITE_RUNTIME");
    }
    std::istringstream package(file->package());
    for (std::string part; std::getline(package, part, '.');) {
      if (CppKeywords().count(part) > 0) {
        Add(file, "package " + file->package() + ": " + part +
                      " is a keyword of C++");
      }
    }
    for (int i = 0; i < file->service_count(); ++i) {
      Add(file->service(i), "services are not supported");
    }
    for (int i = 0; i < file->extension_count(); ++i) {
      Add(file->extension(i), "extensions are not supported");
    }
    for (int i = 0; i < file->enum_type_count(); ++i) Look(file->enum_type(i));
    for (int i = 0; i < file->message_type_count(); ++i) {
      Look(file->message_type(i));
    }
  }

 private:
  void Look(const EnumDescriptor* enum_type) {
    LookAtName(enum_type);
    if (enum_type->options().allow_alias()) {
      Add(enum_type, "allow_alias is not supported");
    }
    for (int i = 0; i < enum_type->value_count(); ++i) {
      LookAtName(enum_type->value(i));
    }
  }

  void Look(const Descriptor* message) {
    LookAtName(message);
    for (int i = 0; i < message->enum_type_count(); ++i) {
      Add(message->enum_type(i), "enums in messages are not supported");
    }
    for (int i = 0; i < message->extension_count(); ++i) {
      Add(message->extension(i), "extensions are not supported");
    }
    if (message->extension_range_count() > 0) {
      Add(message, "extension ranges are not supported");
    }
    for (int i = 0; i < message->real_oneof_decl_count(); ++i) {
      Add(message->oneof_decl(i), "oneof is not supported");
    }
    for (int i = 0; i < message->field_count(); ++i) Look(message->field(i));
    for (int i = 0; i < message->nested_type_count(); ++i) {
      // The entries of a map are refused where the map stands.
      if (!message->nested_type(i)->options().map_entry()) {
        Look(message->nested_type(i));
      }
    }
  }

  void Look(const FieldDescriptor* field) {
    LookAtName(field);
    for (const char c : field->name()) {
      if (std::isupper(static_cast<unsigned char>(c)) != 0) {
        Add(field, "field names must be in lower case");
        break;
      }
    }
    if (OwnNames().count(field->name()) > 0) {
      Add(field, "is a name of the emitted code");
    }
    if (field->number() > kMaxFieldNumber) {
      Add(field, "field numbers above 2047 are not supported");
    }
    if (field->is_map()) {
      Add(field, "maps are not supported");
      return;
    }
    if (field->has_optional_keyword()) {
      Add(field, "optional is not supported");
    }
    if (field->is_required()) Add(field, "required is not supported");
    if (field->has_default_value()) {
      Add(field, "default values are not supported");
    }
    LookAtKind(field);
  }

  void LookAtKind(const FieldDescriptor* field) {
    switch (field->type()) {
      case FieldDescriptor::TYPE_DOUBLE:
      case FieldDescriptor::TYPE_FIXED32:
      case FieldDescriptor::TYPE_FIXED64:
      case FieldDescriptor::TYPE_SFIXED32:
      case FieldDescriptor::TYPE_SFIXED64:
      case FieldDescriptor::TYPE_GROUP:
        Add(field, std::string(field->type_name()) + " is not supported");
        return;
      case FieldDescriptor::TYPE_STRING:
      case FieldDescriptor::TYPE_BYTES:
        if (field->is_repeated()) {
          Add(field, std::string("repeated ") + field->type_name() +
                         " is not supported");
        }
        return;
      default:
        break;
    }
    if (field->is_packable() && !field->is_packed()) {
      Add(field, "unpacked lists of scalars are not supported");
    }
  }

  template <typename T>
  void LookAtName(const T* named) {
    if (CppKeywords().count(named->name()) > 0) {
      Add(named, "is a keyword of C++");
    }
  }

  template <typename T>
  void Add(const T* descriptor, const std::string& fault) {
    google::protobuf::SourceLocation location;
    std::string position = "1:1";
    if (descriptor->GetSourceLocation(&location)) {
      position = std::to_string(location.start_line + 1) + ":" +
                 std::to_string(location.start_column + 1);
    }
    faults_->push_back(descriptor->file()->name() + ":" + position + ": " +
                       descriptor->full_name() + ": " + fault);
  }

  void Add(const FileDescriptor* file, const std::string& fault) {
    faults_->push_back(file->name() + ":1:1: " + file->name() + ": " + fault);
  }

  std::vector<std::string>* const faults_;
};

}  // namespace

void FindUnsupported(const FileDescriptor* file,
                     std::vector<std::string>* faults) {
  Finder(faults).Look(file);
}

}  // namespace compiler
}  // namespace vantiro
