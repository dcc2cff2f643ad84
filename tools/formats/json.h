// Records as JSON, as all Protocol Buffers libraries read and write it.
//
// What this JSON cannot hold is in members that begin with "@": in the object
// of a message "@unknown" has its unknown fields, "@nan" the bits of NaNs other
// than the usual one, and "@not_utf8" the strings that are not UTF-8, which
// only a damaged record has. "@error" is a note of the fault of a damaged
// record.

#ifndef VANTIRO_TOOLS_FORMATS_JSON_H_
#define VANTIRO_TOOLS_FORMATS_JSON_H_

#include <nlohmann/json.hpp>
#include <string>

#include "tools/formats/json_printer.h"
#include "tools/record/path.h"
#include "tools/record/record.h"

namespace vantiro {
namespace tools {

using Json = nlohmann::ordered_json;

struct JsonOptions {
  // The field names of the schema instead of those in camel case.
  bool has_original_names = false;
  // Without the members that begin with "@".
  bool is_strict = false;
};

// Write members of an object: all fields in `record`, or each path with its
// value, null if there is none, or an array if the path can lead to several.
void WriteMembers(const Record& record, const JsonOptions& options,
                  JsonPrinter* out);
void WriteMembers(const Paths& paths, const Record& record,
                  const JsonOptions& options, JsonPrinter* out);
// The object of the first in one line.
std::string RecordJson(const Record& record, const JsonOptions& options);

// The text of the JSON, with escapes for what EscapeControls escapes; in lines
// with an indentation of `indent`, or in one line if that is -1.
std::string JsonText(const Json& json, int indent);
// Writes the member "@error".
void WriteMember(const Fault& fault, JsonPrinter* out);

// The inverse of RecordJson. Takes both kinds of names. Throws a FormatError.
Record ReadJson(const Descriptor& type, const std::string& text);

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_FORMATS_JSON_H_
