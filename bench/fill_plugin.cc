// A protoc plug-in that writes functions which fill a unit's messages through
// their accessors, in <stem>.fill.h:
//
//   inline void Fill(Values* values, ::zaf::ZAfTargetFocusInfo* to);

#include <google/protobuf/compiler/code_generator.h>
#include <google/protobuf/compiler/plugin.h>
#include <google/protobuf/descriptor.h>
#include <google/protobuf/io/printer.h>
#include <google/protobuf/io/zero_copy_stream.h>

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
using google::protobuf::io::Printer;

std::string StemOf(const FileDescriptor* file) {
  return file->name().substr(0, file->name().rfind(".proto"));
}

std::string CppName(const std::string& full_name) {
  std::string name;
  for (const char c : full_name) {
    name += c == '.' ? std::string("::") : std::string(1, c);
  }
  return "::" + name;
}

// All declared numbers but zero: "1, 2, 3".
std::string NumbersOf(const EnumDescriptor* type) {
  std::string numbers;
  for (int i = 0; i < type->value_count(); ++i) {
    const int number = type->value(i)->number();
    if (number == 0) continue;
    if (!numbers.empty()) numbers += ", ";
    numbers += std::to_string(number);
  }
  return numbers;
}

// The call that gives a value for a scalar field.
std::string ValueOf(const FieldDescriptor* field) {
  if (field->enum_type() != nullptr) {
    return "OneOf<" + CppName(field->enum_type()->full_name()) + ">({" +
           NumbersOf(field->enum_type()) + "})";
  }
  if (field->type() == FieldDescriptor::TYPE_BYTES) return "String()";
  std::string name = field->type_name();
  name[0] =
      static_cast<char>(std::toupper(static_cast<unsigned char>(name[0])));
  return name + "()";
}

const char* TemplateOf(const FieldDescriptor* field) {
  if (field->message_type() != nullptr) {
    return field->is_repeated()
               ? "  for (int i = values->MessageCount(); i > 0; --i) {\n"
                 "    Fill(values, to->add_$name$());\n"
                 "  }\n"
               : "  if (values->HasMessage()) "
                 "Fill(values, to->mutable_$name$());\n";
  }
  return field->is_repeated()
             ? "  for (int i = values->ScalarCount(); i > 0; --i) {\n"
               "    to->add_$name$(values->$value$);\n"
               "  }\n"
             : "  if (values->HasScalar()) to->set_$name$(values->$value$);\n";
}

void PrintFunction(const Descriptor* message, Printer* printer) {
  printer->Print(
      "inline void Fill([[maybe_unused]] Values* values,\n"
      "                 [[maybe_unused]] $class$* to) {\n",
      "class", CppName(message->full_name()));
  for (int i = 0; i < message->field_count(); ++i) {
    const FieldDescriptor* field = message->field(i);
    std::map<std::string, std::string> variables = {{"name", field->name()}};
    if (field->message_type() == nullptr) variables["value"] = ValueOf(field);
    printer->Print(variables, TemplateOf(field));
  }
  printer->Print("}\n\n");
}

// A message's nested types, and it.
void Collect(const Descriptor* message,
             std::vector<const Descriptor*>* messages) {
  for (int i = 0; i < message->nested_type_count(); ++i) {
    Collect(message->nested_type(i), messages);
  }
  messages->push_back(message);
}

class FillGenerator : public google::protobuf::compiler::CodeGenerator {
 public:
  bool Generate(const FileDescriptor* file, const std::string& /*parameter*/,
                google::protobuf::compiler::GeneratorContext* context,
                std::string* /*error*/) const override {
    const std::unique_ptr<google::protobuf::io::ZeroCopyOutputStream> stream(
        context->Open(StemOf(file) + ".fill.h"));
    Printer printer(stream.get(), '$');
    printer.Print("#pragma once\n\n#include \"bench/values.h\"\n");
    for (int i = 0; i < file->dependency_count(); ++i) {
      printer.Print("#include \"$stem$.fill.h\"\n", "stem",
                    StemOf(file->dependency(i)));
    }
    printer.Print(
        "#include \"$stem$.pb.h\"\n\nnamespace vantiro {\nnamespace bench "
        "{\n\n",
        "stem", StemOf(file));
    std::vector<const Descriptor*> messages;
    for (int i = 0; i < file->message_type_count(); ++i) {
      Collect(file->message_type(i), &messages);
    }
    for (const Descriptor* message : messages) {
      printer.Print("inline void Fill(Values* values, $class$* to);\n", "class",
                    CppName(message->full_name()));
    }
    printer.Print("\n");
    for (const Descriptor* message : messages) PrintFunction(message, &printer);
    printer.Print("}  // namespace bench\n}  // namespace vantiro\n");
    return true;
  }
};

}  // namespace

int main(int argc, char* argv[]) {
  const FillGenerator generator;
  return google::protobuf::compiler::PluginMain(argc, argv, &generator);
}
