// A record as an indented outline for reading.

#ifndef VANTIRO_TOOLS_FORMATS_OUTLINE_H_
#define VANTIRO_TOOLS_FORMATS_OUTLINE_H_

#include <ostream>

#include "tools/formats/style.h"
#include "tools/record/record.h"

namespace vantiro {
namespace tools {

// Writes all fields in `record`: enums with their numbers, messages with their
// type, and repeated messages with their index.
void WriteOutline(const Record& record, const Style& style, std::ostream* out);

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_FORMATS_OUTLINE_H_
