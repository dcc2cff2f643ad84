// Records in the JSON of proto3, with the field names of the schema.
//
// 64-bit integers are strings, as proto3 has them. It differs in this: bytes
// are hexadecimal, a NaN has its bits, and unknown fields are in an array named
// "@unknown". A string that is not UTF-8, which only a damaged record has, is
// {"@not_utf8": "<hexadecimal>"}.

#ifndef VANTIRO_TOOLS_FORMATS_JSON_H_
#define VANTIRO_TOOLS_FORMATS_JSON_H_

#include <cstdint>
#include <nlohmann/json.hpp>
#include <string>

#include "tools/record/record.h"

namespace vantiro {
namespace tools {

using Json = nlohmann::ordered_json;

// All fields in `record`.
Json ToJson(const Record& record);
// A scalar of these bits.
Json ToJson(const FieldDescriptor& field, uint64_t bits);
Json ToJson(const FieldValue& value);
// The inverse. Throws a FormatError.
Record ReadJson(const Descriptor& type, const std::string& text);

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_FORMATS_JSON_H_
