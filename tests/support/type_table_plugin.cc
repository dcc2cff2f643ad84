// A protoc plug-in that lists what a unit declares as lines of macros, in
// <stem>.types.inc. The tests include them with macros of their own, and so
// reach every type, field and enum by its own C++ name.
//
//   VANTIRO_MESSAGE(class, "full name")
//   VANTIRO_SCALAR(class, "full name", number, name, KIND)
//   VANTIRO_LIST(class, "full name", number, name, KIND)
//   VANTIRO_TEXT(class, "full name", number, name, KIND)
//   VANTIRO_SUB(class, "full name", number, name, "type")
//   VANTIRO_SUB_LIST(class, "full name", number, name, "type")
//   VANTIRO_ENUM(enum, "full name", namespace, name)
//   VANTIRO_ENUM_VALUE(enum, "full name", "value name", number)

#include <google/protobuf/compiler/code_generator.h>
#include <google/protobuf/compiler/plugin.h>
#include <google/protobuf/descriptor.h>
#include <google/protobuf/io/printer.h>
#include <google/protobuf/io/zero_copy_stream.h>

#include <cctype>
#include <map>
#include <memory>
#include <string>

namespace {

using google::protobuf::Descriptor;
using google::protobuf::EnumDescriptor;
using google::protobuf::FieldDescriptor;
using google::protobuf::FileDescriptor;
using google::protobuf::io::Printer;

std::string Namespace(const FileDescriptor* file) {
  std::string result = "::";
  for (const char c : file->package()) {
    result += c == '.' ? std::string("::") : std::string(1, c);
  }
  return result;
}

// The class of a nested message is its path in the package, underscored.
std::string ClassOf(const Descriptor* message) {
  std::string path =
      message->full_name().substr(message->file()->package().size() + 1);
  for (char& c : path) {
    if (c == '.') c = '_';
  }
  return Namespace(message->file()) + "::" + path;
}

std::string MacroOf(const FieldDescriptor* field) {
  if (field->message_type() != nullptr) {
    return field->is_repeated() ? "VANTIRO_SUB_LIST" : "VANTIRO_SUB";
  }
  if (field->cpp_type() == FieldDescriptor::CPPTYPE_STRING) {
    return "VANTIRO_TEXT";
  }
  return field->is_repeated() ? "VANTIRO_LIST" : "VANTIRO_SCALAR";
}

std::string KindOf(const FieldDescriptor* field) {
  if (field->message_type() != nullptr) {
    return "\"" + field->message_type()->full_name() + "\"";
  }
  std::string kind = field->type_name();
  for (char& c : kind) {
    c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  }
  return kind;
}

void List(const Descriptor* message, Printer* printer) {
  std::map<std::string, std::string> holes = {
      {"class", ClassOf(message)}, {"full_name", message->full_name()}};
  printer->Print(holes, "VANTIRO_MESSAGE($class$, \"$full_name$\")\n");
  for (int i = 0; i < message->field_count(); ++i) {
    const FieldDescriptor* field = message->field(i);
    holes["macro"] = MacroOf(field);
    holes["number"] = std::to_string(field->number());
    holes["name"] = field->name();
    holes["kind"] = KindOf(field);
    printer->Print(
        holes, "$macro$($class$, \"$full_name$\", $number$, $name$, $kind$)\n");
  }
  for (int i = 0; i < message->nested_type_count(); ++i) {
    List(message->nested_type(i), printer);
  }
}

void List(const EnumDescriptor* enum_type, Printer* printer) {
  std::map<std::string, std::string> holes = {
      {"namespace", Namespace(enum_type->file())},
      {"name", enum_type->name()},
      {"full_name", enum_type->full_name()}};
  printer->Print(holes,
                 "VANTIRO_ENUM($namespace$::$name$, \"$full_name$\", "
                 "$namespace$, $name$)\n");
  for (int i = 0; i < enum_type->value_count(); ++i) {
    holes["value"] = enum_type->value(i)->name();
    holes["number"] = std::to_string(enum_type->value(i)->number());
    printer->Print(holes,
                   "VANTIRO_ENUM_VALUE($namespace$::$name$, \"$full_name$\", "
                   "\"$value$\", $number$)\n");
  }
}

class Lister : public google::protobuf::compiler::CodeGenerator {
 public:
  bool Generate(const FileDescriptor* file, const std::string& /*parameter*/,
                google::protobuf::compiler::GeneratorContext* context,
                std::string* /*error*/) const override {
    const std::string& name = file->name();
    const std::unique_ptr<google::protobuf::io::ZeroCopyOutputStream> stream(
        context->Open(name.substr(0, name.rfind(".proto")) + ".types.inc"));
    Printer printer(stream.get(), '$');
    for (int i = 0; i < file->enum_type_count(); ++i) {
      List(file->enum_type(i), &printer);
    }
    for (int i = 0; i < file->message_type_count(); ++i) {
      List(file->message_type(i), &printer);
    }
    return true;
  }
};

}  // namespace

int main(int argc, char* argv[]) {
  const Lister lister;
  return google::protobuf::compiler::PluginMain(argc, argv, &lister);
}
