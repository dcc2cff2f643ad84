// A protoc plug-in that writes what the given schema files declare as lines of
// macros, into type_table.inc. The tests include it with macros of their own,
// and so reach every type, field and enum by its own C++ name.
//
//   VANTIRO_MESSAGE(class, "full name")
//   VANTIRO_<sort of field>(class, "full name", number, name, KIND, "type")
//   VANTIRO_UNPACKED_FIELD("full name", number), behind that of the field
//   VANTIRO_ENUM(enum, "full name", namespace or class, name)
//   VANTIRO_ENUM_VALUE(enum, "full name", "value name", number)
//
// A message's fields follow it, ordered by number. "type" is that of a message
// field. all_types.h includes the headers of all these files.

#include <google/protobuf/compiler/code_generator.h>
#include <google/protobuf/compiler/plugin.h>
#include <google/protobuf/descriptor.h>
#include <google/protobuf/io/printer.h>
#include <google/protobuf/io/zero_copy_stream.h>
#include <google/protobuf/stubs/strutil.h>

#include <cctype>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace {

using google::protobuf::Descriptor;
using google::protobuf::EnumDescriptor;
using google::protobuf::FieldDescriptor;
using google::protobuf::FileDescriptor;
using google::protobuf::StringReplace;
using google::protobuf::compiler::GeneratorContext;
using google::protobuf::io::Printer;

constexpr const char* kMacros[] = {"MESSAGE",
                                   "SCALAR_FIELD",
                                   "REPEATED_FIELD",
                                   "STRING_FIELD",
                                   "MESSAGE_FIELD",
                                   "REPEATED_MESSAGE_FIELD",
                                   "REPEATED_STRING_FIELD",
                                   "UNPACKED_FIELD",
                                   "ENUM",
                                   "ENUM_VALUE"};

std::string Namespace(const FileDescriptor* file) {
  return "::" + StringReplace(file->package(), ".", "::", true);
}

// The class of a nested message is its path in the package, with underscores.
std::string Class(const Descriptor* message) {
  const FileDescriptor* const file = message->file();
  const std::string path =
      message->full_name().substr(file->package().size() + 1);
  return Namespace(file) + "::" + StringReplace(path, ".", "_", true);
}

std::string Macro(const FieldDescriptor* field) {
  if (field->message_type() != nullptr) {
    return field->is_repeated() ? "REPEATED_MESSAGE_FIELD" : "MESSAGE_FIELD";
  }
  if (field->cpp_type() == FieldDescriptor::CPPTYPE_STRING) {
    return field->is_repeated() ? "REPEATED_STRING_FIELD" : "STRING_FIELD";
  }
  return field->is_repeated() ? "REPEATED_FIELD" : "SCALAR_FIELD";
}

void Print(const EnumDescriptor* enum_type, Printer* printer) {
  const Descriptor* const parent = enum_type->containing_type();
  std::map<std::string, std::string> variables = {
      {"scope",
       parent == nullptr ? Namespace(enum_type->file()) : Class(parent)},
      {"name", enum_type->name()},
      {"full_name", enum_type->full_name()}};
  printer->Print(variables,
                 "VANTIRO_ENUM($scope$::$name$, \"$full_name$\", "
                 "$scope$, $name$)\n");
  for (int i = 0; i < enum_type->value_count(); ++i) {
    variables["value"] = enum_type->value(i)->name();
    variables["number"] = std::to_string(enum_type->value(i)->number());
    printer->Print(variables,
                   "VANTIRO_ENUM_VALUE($scope$::$name$, \"$full_name$\", "
                   "\"$value$\", $number$)\n");
  }
}

void Print(const Descriptor* message, Printer* printer) {
  std::map<std::string, std::string> variables = {
      {"class", Class(message)}, {"full_name", message->full_name()}};
  printer->Print(variables, "VANTIRO_MESSAGE($class$, \"$full_name$\")\n");
  std::map<int, const FieldDescriptor*> by_number;
  for (int i = 0; i < message->field_count(); ++i) {
    by_number[message->field(i)->number()] = message->field(i);
  }
  for (const auto& [number, field] : by_number) {
    std::string kind = field->type_name();
    for (char& c : kind) c = static_cast<char>(std::toupper(c));
    const Descriptor* const type = field->message_type();
    variables["macro"] = Macro(field);
    variables["number"] = std::to_string(number);
    variables["name"] = field->name();
    variables["kind"] = kind;
    variables["type"] = type == nullptr ? "" : type->full_name();
    printer->Print(variables,
                   "VANTIRO_$macro$($class$, \"$full_name$\", $number$, "
                   "$name$, $kind$, \"$type$\")\n");
    if (field->is_packable() && !field->is_packed()) {
      printer->Print(variables,
                     "VANTIRO_UNPACKED_FIELD(\"$full_name$\", $number$)\n");
    }
  }
  for (int i = 0; i < message->enum_type_count(); ++i) {
    Print(message->enum_type(i), printer);
  }
  for (int i = 0; i < message->nested_type_count(); ++i) {
    Print(message->nested_type(i), printer);
  }
}

class TypeTable : public google::protobuf::compiler::CodeGenerator {
 public:
  bool GenerateAll(const std::vector<const FileDescriptor*>& files,
                   const std::string& /*parameter*/, GeneratorContext* context,
                   std::string* /*error*/) const override {
    using Stream = std::unique_ptr<google::protobuf::io::ZeroCopyOutputStream>;
    const Stream table_stream(context->Open("type_table.inc"));
    const Stream headers_stream(context->Open("all_types.h"));
    Printer table(table_stream.get(), '$');
    Printer headers(headers_stream.get(), '$');
    // A macro that an including file doesn't define gives nothing.
    for (const char* const macro : kMacros) {
      table.Print("#ifndef VANTIRO_$m$\n#define VANTIRO_$m$(...)\n#endif\n",
                  "m", macro);
    }
    for (const FileDescriptor* const file : files) {
      headers.Print(
          "#include \"$stem$.pb.h\"\n", "stem",
          google::protobuf::StripSuffixString(file->name(), ".proto"));
      for (int i = 0; i < file->enum_type_count(); ++i) {
        Print(file->enum_type(i), &table);
      }
      for (int i = 0; i < file->message_type_count(); ++i) {
        Print(file->message_type(i), &table);
      }
    }
    for (const char* const macro : kMacros) {
      table.Print("#undef VANTIRO_$m$\n", "m", macro);
    }
    return true;
  }

  bool Generate(const FileDescriptor*, const std::string&, GeneratorContext*,
                std::string*) const override {
    return false;  // protoc calls the above.
  }
};

}  // namespace

int main(int argc, char* argv[]) {
  const TypeTable type_table;
  return google::protobuf::compiler::PluginMain(argc, argv, &type_table);
}
