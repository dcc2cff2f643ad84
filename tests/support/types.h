// Every message type that is under test, by its name.

#ifndef VANTIRO_TESTS_SUPPORT_TYPES_H_
#define VANTIRO_TESTS_SUPPORT_TYPES_H_

#include <google/protobuf/io/coded_stream.h>
#include <google/protobuf/message_lite.h>

#include <string>
#include <vector>

namespace vantiro {
namespace tests {

using google::protobuf::Arena;
using google::protobuf::MessageLite;
using google::protobuf::io::CodedInputStream;
using google::protobuf::io::CodedOutputStream;

// The operations of a class that MessageLite doesn't have, or has as others.
struct Type {
  const char* name;
  MessageLite* (*create)(Arena* arena);
  MessageLite* (*copy)(const MessageLite& from);
  const MessageLite& (*default_instance)();
  void (*copy_from)(MessageLite* to, const MessageLite& from);
  void (*merge_from)(MessageLite* to, const MessageLite& from);
  void (*swap)(MessageLite* a, MessageLite* b);
  bool (*merge_from_stream)(MessageLite* message, CodedInputStream* input);
  void (*serialize_with_cached_sizes)(const MessageLite& message,
                                      CodedOutputStream* output);
};

// All types of the library's units, in the order of their units and numbers.
const std::vector<Type>& AllTypes();

// The type of that name, or null.
const Type* FindType(const std::string& name);

}  // namespace tests
}  // namespace vantiro

#endif  // VANTIRO_TESTS_SUPPORT_TYPES_H_
