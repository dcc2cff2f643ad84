// Records in the text format of Protocol Buffers.
//
// It is extended in two ways. A NaN has its bits, as in "nan(0xffc00001)".
// Unknown fields have their number for a name, as the runtime's printer writes
// them: "15: 7" is a varint, eight hexadecimal digits are a fixed32, sixteen
// are a fixed64, a string is length-delimited, and braces are a group.

#ifndef VANTIRO_TOOLS_FORMATS_TEXT_FORMAT_H_
#define VANTIRO_TOOLS_FORMATS_TEXT_FORMAT_H_

#include <ostream>
#include <string>

#include "tools/formats/style.h"
#include "tools/record/record.h"

namespace vantiro {
namespace tools {

// Writes all fields in `record`. Repeated fields are in brackets, and bytes in
// \x escapes.
void WriteText(const Record& record, const Style& style, std::ostream* out);
// The inverse. Reads what the runtime's parser reads, but refuses strings that
// are not UTF-8, which the library would not parse. Throws a FormatError.
Record ReadText(const Descriptor& type, const std::string& text);

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_FORMATS_TEXT_FORMAT_H_
