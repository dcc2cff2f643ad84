#include "compiler/file_generator.h"

#include <map>
#include <set>

#include "compiler/line_breaking.h"
#include "compiler/names.h"

namespace vantiro {
namespace compiler {
namespace {

using google::protobuf::Descriptor;
using google::protobuf::FileDescriptor;

using Enums = std::vector<std::unique_ptr<EnumGenerator>>;
using Messages = std::vector<std::unique_ptr<MessageGenerator>>;

// Those of a unit, or of a message.
template <typename Parent>
void AddEnumGenerators(const Parent* parent, Enums* enums) {
  for (int i = 0; i < parent->enum_type_count(); ++i) {
    enums->push_back(std::make_unique<EnumGenerator>(parent->enum_type(i)));
  }
}

void AddNestedEnumGenerators(const Descriptor* message, Enums* enums) {
  AddEnumGenerators(message, enums);
  for (int i = 0; i < message->nested_type_count(); ++i) {
    AddNestedEnumGenerators(message->nested_type(i), enums);
  }
}

Enums MakeEnumGenerators(const FileDescriptor* file) {
  Enums enums;
  AddEnumGenerators(file, &enums);
  for (int i = 0; i < file->message_type_count(); ++i) {
    AddNestedEnumGenerators(file->message_type(i), &enums);
  }
  return enums;
}

void AddMessageGenerators(const Descriptor* message, Messages* messages) {
  for (int i = 0; i < message->nested_type_count(); ++i) {
    AddMessageGenerators(message->nested_type(i), messages);
  }
  messages->push_back(std::make_unique<MessageGenerator>(message));
}

Messages MakeMessageGenerators(const FileDescriptor* file) {
  Messages messages;
  for (int i = 0; i < file->message_type_count(); ++i) {
    AddMessageGenerators(file->message_type(i), &messages);
  }
  return messages;
}

// `lines` and an empty one, unless there are none.
std::string Paragraph(const std::string& lines) {
  return lines.empty() ? "" : lines + "\n";
}

std::string InRuntimeNamespace(const std::string& code) {
  if (code.empty()) return "";
  return Substitute({{"code", code}}, R"(
      namespace google {
      namespace protobuf {

      $code$

      }  // namespace protobuf
      }  // namespace google
  )");
}

size_t CountDependencies(const Descriptor* message) {
  std::map<std::string, int> types;
  for (int i = 0; i < message->field_count(); ++i) {
    const Descriptor* type = message->field(i)->message_type();
    if (type != nullptr) types[type->full_name()] = 1;
  }
  return types.size();
}

}  // namespace

FileGenerator::FileGenerator(const FileDescriptor* file)
    : file_(file),
      variables_({{"file", file->name()},
                  {"Stem", Stem(file)},
                  {"guard", HeaderGuard(file)},
                  {"internal", InternalNamespace(file)},
                  {"open", Paragraph(OpenNamespaces(file))},
                  {"close", Paragraph(CloseNamespaces(file))}}),
      enums_(MakeEnumGenerators(file)),
      messages_(MakeMessageGenerators(file)) {}

std::string FileGenerator::ForEnums(EnumFunction function) const {
  std::string result;
  for (const auto& generator : enums_) result += ((*generator).*function)();
  return result;
}

std::string FileGenerator::ForMessages(MessageFunction function) const {
  std::string result;
  for (const auto& generator : messages_) result += ((*generator).*function)();
  return result;
}

// Those of the imports and of lib/internal, sorted.
std::string FileGenerator::IncludesOfHeader() const {
  std::set<std::string> headers = {"internal/accessors.h",
                                   "internal/message_access.h",
                                   "internal/repeated_capacity.h"};
  for (int i = 0; i < file_->dependency_count(); ++i) {
    headers.insert(Stem(file_->dependency(i)) + ".pb.h");
  }
  std::string result;
  for (const std::string& header : headers) {
    result += "#include \"" + header + "\"\n";
  }
  return result;
}

// The SccInfo objects of this unit, and those of other units that they need.
std::string FileGenerator::SccInfoDeclarations() const {
  std::map<std::string, const Descriptor*> needed;
  for (const auto& generator : messages_) {
    const Descriptor* message = generator->descriptor();
    needed[SccInfoName(message)] = message;
    for (int i = 0; i < message->field_count(); ++i) {
      const Descriptor* type = message->field(i)->message_type();
      if (type != nullptr) needed[SccInfoName(type)] = type;
    }
  }
  std::string result;
  for (const auto& entry : needed) {
    result += "extern ::vantiro::internal::SccInfo<" +
              std::to_string(CountDependencies(entry.second)) + "> " +
              entry.first + ";\n";
  }
  return result;
}

std::string FileGenerator::Header() const {
  return BreakLongLines(Substitute(
      Combine(variables_,
              {{"includes", IncludesOfHeader()},
               {"forward",
                Paragraph(ForMessages(&MessageGenerator::ForwardDeclarations))},
               {"creation", Paragraph(InRuntimeNamespace(ForMessages(
                                &MessageGenerator::CreationDeclaration)))},
               {"enums", ForEnums(&EnumGenerator::Declaration)},
               {"traits",
                Paragraph(InRuntimeNamespace(ForEnums(&EnumGenerator::Trait)))},
               {"classes", ForMessages(&MessageGenerator::ClassDefinition)},
               {"accessors",
                ForMessages(&MessageGenerator::InlineAccessorDefinitions)}}),
      R"(
      // Made from $file$. Do not edit.

      #ifndef $guard$
      #define $guard$

      #include <google/protobuf/arena.h>
      #include <google/protobuf/arenastring.h>
      #include <google/protobuf/generated_enum_util.h>
      #include <google/protobuf/generated_message_util.h>
      #include <google/protobuf/io/coded_stream.h>
      #include <google/protobuf/message_lite.h>
      #include <google/protobuf/repeated_field.h>

      #include <cstddef>
      #include <cstdint>
      #include <limits>
      #include <string>
      #include <type_traits>
      #include <utility>

      $includes$

      #if GOOGLE_PROTOBUF_VERSION < 3021000 || GOOGLE_PROTOBUF_VERSION >= 3022000
      #error "These classes need the headers of Protocol Buffers 3.21."
      #endif

      $open$
      $forward$
      $close$
      $creation$
      $open$
      $enums$
      $classes$
      $accessors$
      $close$
      $traits$
      #endif  // $guard$
  )"));
}

std::string FileGenerator::DefaultInstances() const {
  const std::string instances = ForMessages(&MessageGenerator::DefaultInstance);
  return instances.empty() ? "" : Substitute({{"instances", instances}}, R"(
      // The default instances: zeroed storage until InitScc constructs them.

      $instances$
  )");
}

std::string FileGenerator::Source() const {
  return BreakLongLines(Substitute(
      Combine(variables_,
              {{"scc_declarations", Paragraph(SccInfoDeclarations())},
               {"instances", DefaultInstances()},
               {"scc_infos", ForMessages(&MessageGenerator::SccInfo)},
               {"enums", ForEnums(&EnumGenerator::Definition)},
               {"operations", ForMessages(&MessageGenerator::Operations)},
               {"creation", InRuntimeNamespace(ForMessages(
                                &MessageGenerator::CreationDefinition))}}),
      R"(
      // Made from $file$. Do not edit.

      #include "$Stem$.pb.h"

      #include "internal/copy_fields.h"
      #include "internal/encoded_size.h"
      #include "internal/enum_names.h"
      #include "internal/merge_scalars.h"
      #include "internal/message_operations.h"
      #include "internal/parse_entry_points.h"
      #include "internal/read_repeated.h"
      #include "internal/read_singular.h"
      #include "internal/scc_info.h"
      #include "internal/tag.h"
      #include "internal/unexpected_tag.h"
      #include "internal/varint_fields.h"
      #include "internal/write_field.h"
      #include "internal/write_scalar.h"
      #include "internal/writer.h"

      $scc_declarations$
      $open$
      $instances$
      $close$
      $scc_infos$
      $open$
      namespace $internal$ = ::vantiro::internal;

      $enums$
      $operations$
      $close$
      $creation$
  )"));
}

}  // namespace compiler
}  // namespace vantiro
