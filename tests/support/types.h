// Every message type that is under test, and its fields: the operations of a
// class behind functions of one form. The types are those of the library, and
// those of tests/data/schema, which have every kind of field.

#ifndef VANTIRO_TESTS_SUPPORT_TYPES_H_
#define VANTIRO_TESTS_SUPPORT_TYPES_H_

#include <google/protobuf/io/coded_stream.h>
#include <google/protobuf/message_lite.h>

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace vantiro {
namespace tests {

using google::protobuf::Arena;
using google::protobuf::MessageLite;
using google::protobuf::io::CodedInputStream;
using google::protobuf::io::CodedOutputStream;
using Owned = std::unique_ptr<MessageLite>;

enum class Kind {
  FLOAT,
  BOOL,
  UINT32,
  INT32,
  SINT32,
  UINT64,
  INT64,
  SINT64,
  ENUM,
  STRING,
  BYTES,
  MESSAGE,
  DOUBLE,
  FIXED32,
  SFIXED32,
  FIXED64,
  SFIXED64,
};

// The value of a field of any kind: the bits of a float or double, any other
// number extended to 64 bits with its sign, a string, or the bytes of a
// message.
struct Value {
  uint64_t number;
  std::string bytes;
  // Of a value that an accessor gave: the kind that its C++ type stands for,
  // the first of those that share it; and the type of a message.
  Kind kind = Kind::FLOAT;
  std::string type_name = "";  // NOLINT: makes it one that may be left out.
};

struct Type;

struct Field {
  const char* owner_name;
  const char* name;
  int number;
  Kind kind;
  bool is_repeated;
  // False only for a repeated scalar that is declared so.
  bool is_packed;
  // Sets the field, or adds an element. A message gets the bytes merged.
  void (*set)(MessageLite* message, const Value& value);
  Value (*get)(const MessageLite& message, int index);
  // The elements of a repeated field; 1 for a sub-message that is present and 0
  // for one that is absent; -1 for others.
  int (*count)(const MessageLite& message);
  void (*clear)(MessageLite* message);
  // Null unless it is a singular message field.
  MessageLite* (*release)(MessageLite* message);
  void (*set_allocated)(MessageLite* message, MessageLite* value);
  // The type of a message field.
  const char* type_name;
  const Type* type = nullptr;
};

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
  std::map<int, Field> fields;

  Owned New() const { return Owned(create(nullptr)); }
  // Whether it is one of tests/data/schema.
  bool IsTestType() const {
    return std::string(name).rfind("vantiro.tests.", 0) == 0;
  }
};

// All types, in the order of their files and of their declaration.
const std::vector<Type>& AllTypes();

// The type of that name. Ends the program if there is none.
const Type& FindType(const std::string& name);

// Merges bytes in words that every runtime has had: 3.9 does not promise
// MergeFromString.
bool MergeBytes(const std::string& bytes, MessageLite* message);

}  // namespace tests
}  // namespace vantiro

#endif  // VANTIRO_TESTS_SUPPORT_TYPES_H_
