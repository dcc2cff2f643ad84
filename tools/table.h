// Text in columns.

#ifndef VANTIRO_TOOLS_TABLE_H_
#define VANTIRO_TOOLS_TABLE_H_

#include <ostream>
#include <string>
#include <vector>

#include "tools/style.h"

namespace vantiro {
namespace inspection {

using Row = std::vector<std::string>;

// Writes rows of equal length, the first one as the heads, in columns as wide
// as they need; the last column ends where its text ends.
void WriteTable(const std::vector<Row>& rows, const Style& style,
                std::ostream* out);

// `text` in lines of at most 80 characters, each behind `indent`.
void WriteParagraph(const std::string& text, const std::string& indent,
                    std::ostream* out);

}  // namespace inspection
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_TABLE_H_
