#include "compiler/message_generator.h"

#include <algorithm>
#include <map>

#include "compiler/names.h"

namespace vantiro {
namespace compiler {
namespace {

using google::protobuf::Descriptor;
using google::protobuf::FieldDescriptor;

std::vector<std::unique_ptr<FieldGenerator>> MakeFieldGenerators(
    const Descriptor* message) {
  std::map<int, std::unique_ptr<FieldGenerator>> by_number;
  for (int i = 0; i < message->field_count(); ++i) {
    by_number[message->field(i)->number()] =
        MakeFieldGenerator(message->field(i));
  }
  std::vector<std::unique_ptr<FieldGenerator>> fields;
  for (auto& entry : by_number) fields.push_back(std::move(entry.second));
  return fields;
}

}  // namespace

MessageGenerator::MessageGenerator(const Descriptor* message)
    : message_(message),
      has_arenas_(HasArenas(message->file())),
      fields_(MakeFieldGenerators(message)),
      variables_({{"Class", ClassName(message)},
                  {"QualifiedClass", QualifiedName(message)},
                  {"default_instance", DefaultInstanceName(message)},
                  {"set_up_record", SetUpRecordName(message)},
                  {"full_name", message->full_name()},
                  {"PeekTag", PeekFunction(message)},
                  {"Namespace", Namespace(message->file())},
                  {"Stem", Stem(message->file())}}) {}

std::string MessageGenerator::ForFields(FieldFunction function) const {
  std::string result;
  for (const auto& field : fields_) result += ((*field).*function)();
  return result;
}

std::string MessageGenerator::Initializers(const std::string& base,
                                           FieldFunction function) const {
  std::string result = ": " + base;
  for (const auto& field : fields_) {
    std::string entry = ((*field).*function)();
    if (entry.empty()) continue;
    entry.pop_back();
    result += ",\n  " + entry;
  }
  return result + " {\n";
}

std::vector<const Descriptor*> MessageGenerator::Dependencies() const {
  std::map<std::string, const Descriptor*> by_name;
  for (const auto& field : fields_) {
    const Descriptor* type = field->descriptor()->message_type();
    if (type != nullptr) by_name[type->full_name()] = type;
  }
  std::vector<const Descriptor*> result;
  for (const auto& entry : by_name) result.push_back(entry.second);
  return result;
}

bool MessageGenerator::NeedsSccInfoCheck() const {
  return std::any_of(fields_.begin(), fields_.end(), [](const auto& field) {
    const auto type = field->descriptor()->cpp_type();
    return type == FieldDescriptor::CPPTYPE_STRING ||
           type == FieldDescriptor::CPPTYPE_MESSAGE;
  });
}

bool MessageGenerator::HasScalars() const {
  return std::any_of(fields_.begin(), fields_.end(), [](const auto& field) {
    return field->scalar_width() > 0;
  });
}

std::string MessageGenerator::DefaultInstance() const {
  return Substitute(
      Combine(variables_,
              {{"accessors",
                ForFields(&FieldGenerator::InternalAccessorDeclaration)}}),
      R"(
      // Zeroed storage until its set-up.
      class $Class$DefaultTypeInternal {
       public:
        ::google::protobuf::internal::ExplicitlyConstructed<$Class$> instance;
      } $default_instance$;

      class $Class$::_Internal {
       public:
        $accessors$
      };

  )");
}

std::string MessageGenerator::SccInfo() const {
  std::string dependencies;
  for (const Descriptor* dependency : Dependencies()) {
    dependencies += "&" + SetUpRecordName(dependency) + ".base,\n";
  }
  const size_t count = Dependencies().size();
  return Substitute(
      Combine(
          variables_,
          {{"count", std::to_string(count)},
           {"dependencies", dependencies.empty() ? "nullptr,\n" : dependencies},
           {"link", count == 0 ? ""
                               : QualifiedName(message_) +
                                     "::InitAsDefaultInstance();\n"}}),
      R"(
      static void InitDefaults$set_up_record$() {
        ::google::protobuf::internal::VerifyVersion(
            GOOGLE_PROTOBUF_VERSION, GOOGLE_PROTOBUF_MIN_LIBRARY_VERSION, "$Stem$.pb");
        void* const storage = &$Namespace$::$default_instance$;
        new (storage) $QualifiedClass$();
        ::google::protobuf::internal::OnShutdownDestroyMessage(storage);
        $link$
      }

      ::vantiro::internal::SccInfo<$count$> $set_up_record$ = {
          {{::vantiro::internal::SccInfoBase::kUninitialized}, $count$,
           InitDefaults$set_up_record$},
          {
              $dependencies$
          }};

  )");
}

}  // namespace compiler
}  // namespace vantiro
