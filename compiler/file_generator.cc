#include "compiler/file_generator.h"

#include <functional>
#include <map>
#include <memory>
#include <vector>

#include "compiler/enum_generator.h"
#include "compiler/message_generator.h"
#include "compiler/names.h"
#include "compiler/template.h"

namespace vantiro {
namespace compiler {
namespace {

using google::protobuf::Descriptor;
using google::protobuf::EnumDescriptor;
using google::protobuf::FileDescriptor;

using Messages = std::vector<std::unique_ptr<Message>>;

// Nested messages stand before the one that holds them.
void Collect(const Descriptor* message, Messages* messages) {
  for (int i = 0; i < message->nested_type_count(); ++i) {
    Collect(message->nested_type(i), messages);
  }
  messages->push_back(std::make_unique<Message>(message));
}

Messages MessagesOf(const FileDescriptor* file) {
  Messages messages;
  for (int i = 0; i < file->message_type_count(); ++i) {
    Collect(file->message_type(i), &messages);
  }
  return messages;
}

std::string ForEnums(const FileDescriptor* file,
                     std::string (*text)(const EnumDescriptor*)) {
  std::string result;
  for (int i = 0; i < file->enum_type_count(); ++i) {
    result += text(file->enum_type(i));
  }
  return result;
}

std::string ForMessages(
    const Messages& messages,
    const std::function<std::string(const Message&)>& text) {
  std::string result;
  for (const auto& message : messages) result += text(*message);
  return result;
}

Holes FileHoles(const FileDescriptor* file) {
  return {{"file", file->name()},
          {"Stem", Stem(file)},
          {"guard", HeaderGuard(file)},
          {"open", OpenNamespaces(file)},
          {"close", CloseNamespaces(file)}};
}

std::string ImportedHeaders(const FileDescriptor* file) {
  std::string result;
  for (int i = 0; i < file->dependency_count(); ++i) {
    result += "#include \"" + Stem(file->dependency(i)) + ".pb.h\"\n";
  }
  return result.empty() ? "" : result + "\n";
}

std::string ForwardDeclarations(const Message& message) {
  return Fill({{"Class", ClassName(message.descriptor())},
               {"default_instance", DefaultInstanceName(message.descriptor())}},
              R"(
      class $Class$;
      class $Class$DefaultTypeInternal;
      extern $Class$DefaultTypeInternal $default_instance$;
  )");
}

std::string CreationDeclaration(const Message& message) {
  return Fill({{"QualifiedClass", QualifiedName(message.descriptor())}}, R"(
      template <>
      $QualifiedClass$*
      Arena::CreateMaybeMessage<$QualifiedClass$>(Arena* arena);
  )");
}

// Without arenas an object may lie on one, but never knows it: the arena runs
// its destructor, and it owns its children on the heap.
std::string CreationDefinition(const Message& message) {
  const bool has_arenas = HasArenas(message.descriptor()->file());
  return Fill({{"QualifiedClass", QualifiedName(message.descriptor())},
               {"Create", has_arenas ? "CreateMessageInternal" : "Create"}},
              R"(
      template <>
      $QualifiedClass$*
      Arena::CreateMaybeMessage<$QualifiedClass$>(Arena* arena) {
        return Arena::$Create$<$QualifiedClass$>(arena);
      }
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

// The set-up records of this unit, and those of other units that they need.
std::string SetUpRecordDeclarations(const Messages& messages) {
  std::map<std::string, const Descriptor*> needed;
  for (const auto& message : messages) {
    const Descriptor* descriptor = message->descriptor();
    needed[SetUpRecordName(descriptor)] = descriptor;
    for (int i = 0; i < descriptor->field_count(); ++i) {
      const Descriptor* type = descriptor->field(i)->message_type();
      if (type != nullptr) needed[SetUpRecordName(type)] = type;
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

}  // namespace

std::string HeaderText(const FileDescriptor* file) {
  const Messages messages = MessagesOf(file);
  return Fill(
      With(FileHoles(file),
           {{"imports", ImportedHeaders(file)},
            {"forward", ForMessages(messages, ForwardDeclarations)},
            {"creation", ForMessages(messages, CreationDeclaration)},
            {"enums", ForEnums(file, EnumDeclaration)},
            {"traits", ForEnums(file, EnumTrait)},
            {"classes", ForMessages(messages,
                                    [](const Message& message) {
                                      return message.ClassDefinition() + "\n";
                                    })},
            {"accessors", ForMessages(messages,
                                      [](const Message& message) {
                                        return "// " +
                                               ClassName(message.descriptor()) +
                                               "\n\n" +
                                               message.AccessorDefinitions() +
                                               "\n";
                                      })}}),
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

      $imports$
      #if GOOGLE_PROTOBUF_VERSION < 3021000 || GOOGLE_PROTOBUF_VERSION >= 3022000
      #error "These classes stand on the Protocol Buffers runtime 3.21: install its headers, or build the library for the version at hand."
      #endif

      namespace vantiro {
      namespace internal {
      struct ParseState;
      class Writer;
      }  // namespace internal
      }  // namespace vantiro

      $open$

      $forward$

      $close$

      namespace google {
      namespace protobuf {

      $creation$

      }  // namespace protobuf
      }  // namespace google

      $open$

      $enums$
      $classes$
      $accessors$
      $close$

      namespace google {
      namespace protobuf {

      $traits$

      }  // namespace protobuf
      }  // namespace google

      #endif  // $guard$
  )");
}

std::string SourceText(const FileDescriptor* file) {
  const Messages messages = MessagesOf(file);
  return Fill(
      With(FileHoles(file),
           {{"records", SetUpRecordDeclarations(messages)},
            {"instances", ForMessages(messages,
                                      [](const Message& message) {
                                        return message.DefaultInstance() + "\n";
                                      })},
            {"set_up", ForMessages(messages,
                                   [](const Message& message) {
                                     return message.SetUp() + "\n";
                                   })},
            {"enums", ForEnums(file, EnumDefinition)},
            {"operations", ForMessages(messages,
                                       [](const Message& message) {
                                         return message.Operations() + "\n";
                                       })},
            {"creation", ForMessages(messages, CreationDefinition)}}),
      R"(
      // Made from $file$. Do not edit.

      #include "$Stem$.pb.h"

      #include <new>

      #include "internal/enum_names.h"
      #include "internal/parse_entry_points.h"
      #include "internal/read_singular.h"
      #include "internal/read_repeated.h"
      #include "internal/scc_info.h"
      #include "internal/tag.h"
      #include "internal/unexpected_tag.h"
      #include "internal/writer.h"

      namespace internal = ::vantiro::internal;
      using ::google::protobuf::internal::WireFormatLite;

      $records$

      $open$

      $instances$
      $close$

      $set_up$

      $open$

      $enums$
      $operations$
      $close$

      namespace google {
      namespace protobuf {

      $creation$

      }  // namespace protobuf
      }  // namespace google
  )");
}

}  // namespace compiler
}  // namespace vantiro
