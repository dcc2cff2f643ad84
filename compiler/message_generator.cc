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
                  {"scc_info", SccInfoName(message)},
                  {"full_name", message->full_name()},
                  {"PeekTag", PeekFunction(message)},
                  {"RawTag", MaxTagSize(message) > 2 ? "LongRawTag" : "RawTag"},
                  {"SafeClass", SafeName(message)},
                  {"safe_default_instance", SafeDefaultInstanceName(message)},
                  {"qualified_default_instance",
                   QualifiedDefaultInstanceName(message)},
                  {"internal", InternalNamespace(message->file())},
                  {"Scalars", ScalarsType(message)},
                  {"scalars", ScalarsName(message)},
                  {"Stem", Stem(message->file())}}) {}

std::string MessageGenerator::ForFields(FieldFunction function) const {
  std::string result;
  for (const auto& field : fields_) result += ((*field).*function)();
  return result;
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

bool MessageGenerator::HasSubMessages() const {
  return std::any_of(fields_.begin(), fields_.end(), [](const auto& field) {
    return field->descriptor()->message_type() != nullptr &&
           !field->descriptor()->is_repeated();
  });
}

Variables MessageGenerator::GroupVariables(
    const std::vector<const FieldGenerator*>& group) const {
  const std::string first = group.front()->name();
  const std::string last = group.back()->name();
  return Combine(
      variables_,
      {{"first", first},
       {"last", last},
       {"count", std::to_string(group.size())},
       {"tag", group.front()->raw_tag()},
       {"tag_value", group.front()->tag_value()},
       {"comment", first == last ? "" : "// " + first + " to " + last}});
}

std::string MessageGenerator::DefaultInstance() const {
  const std::string accessors =
      ForFields(&FieldGenerator::InternalAccessorDeclaration);
  const std::string internal_class =
      accessors.empty()
          ? ""
          : Substitute(Combine(variables_, {{"accessors", accessors}}), R"(
      class $Class$::_Internal {
       public:
        $accessors$
      };

  )");
  return Substitute(Combine(variables_, {{"internal_class", internal_class}}),
                    R"(
      class $Class$DefaultTypeInternal {
       public:
        ::google::protobuf::internal::ExplicitlyConstructed<$SafeClass$> instance;
      } $default_instance$;

      $internal_class$
  )");
}

std::string MessageGenerator::SccInfo() const {
  std::string dependencies;
  for (const Descriptor* dependency : Dependencies()) {
    dependencies += ", &" + SccInfoName(dependency);
  }
  return Substitute(
      Combine(variables_, {{"count", std::to_string(Dependencies().size())},
                           {"dependencies", dependencies}}),
      R"(
      static void InitDefaults$scc_info$() { ::vantiro::internal::InitDefaultInstance(&$qualified_default_instance$, "$Stem$.pb"); }

      ::vantiro::internal::SccInfo<$count$> $scc_info$(InitDefaults$scc_info$$dependencies$);

  )");
}

}  // namespace compiler
}  // namespace vantiro
