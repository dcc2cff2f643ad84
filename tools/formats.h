// Records as text that people and other programs read, and back.
//
// The writers show every field that stands in the record: AddZeros and
// DropZeros say which these are.

#ifndef VANTIRO_TOOLS_FORMATS_H_
#define VANTIRO_TOOLS_FORMATS_H_

#include <nlohmann/json.hpp>
#include <ostream>
#include <stdexcept>
#include <string>

#include "tools/record.h"
#include "tools/style.h"

namespace vantiro {
namespace inspection {

using Json = nlohmann::ordered_json;

// The text or JSON is not a record of the type; `what` says where and why.
class FormatError : public std::runtime_error {
 public:
  using runtime_error::runtime_error;
};

// The text format of Protocol Buffers, with lists in brackets and bytes in
// \x escapes. Beyond it: a NaN with its bits, as "nan(0xffc00001)". Unknown
// fields are called by their number, as the runtime's printer does it:
// "15: 7" is a varint, eight hexadecimal digits are four bytes, sixteen are
// eight, a string is length-delimited, braces are a group.
void WriteText(const Record& record, const Style& style, std::ostream* out);
// The inverse. Throws a FormatError.
Record ReadText(const Descriptor& type, const std::string& text);

// The JSON of proto3, with the names of the schema. 64-bit integers are
// strings, as there. Beyond it: bytes in hexadecimal, a NaN with its bits, and
// unknown fields in a list named "@unknown". A string that is not UTF-8, which
// only a damaged record has, is {"@not_utf8": "<hexadecimal>"}.
Json ToJson(const Record& record);
Json ToJson(const FieldDescriptor& field, uint64_t bits);
Json ToJson(const FieldValue& value);
// The inverse. Throws a FormatError.
Record ReadJson(const Descriptor& type, const std::string& text);

// An indented outline for reading: enums with their numbers, elements of lists
// of messages with their index.
void WriteOutline(const Record& record, const Style& style, std::ostream* out);

// A scalar list as "[1, 2]", a text in quotes, bytes in \x escapes, a scalar as
// it is. Not for messages.
std::string ValueText(const FieldValue& value);

}  // namespace inspection
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_FORMATS_H_
