// Text in columns.

#ifndef VANTIRO_TOOLS_IO_TABLE_H_
#define VANTIRO_TOOLS_IO_TABLE_H_

#include <ostream>
#include <string>
#include <vector>

#include "tools/formats/style.h"

namespace vantiro {
namespace tools {

using Row = std::vector<std::string>;

// Writes rows of equal length, of which the first one has the headings, in
// columns as wide as their widest cell.
void WriteTable(const std::vector<Row>& rows, const Style& style,
                std::ostream* out);

// Writes `text` in lines of at most 80 characters, `indent` included.
void WriteParagraph(const std::string& text, const std::string& indent,
                    std::ostream* out);

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_IO_TABLE_H_
