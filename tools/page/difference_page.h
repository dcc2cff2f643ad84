// The differences between records as an HTML page, side by side.

#ifndef VANTIRO_TOOLS_PAGE_DIFFERENCE_PAGE_H_
#define VANTIRO_TOOLS_PAGE_DIFFERENCE_PAGE_H_

#include <memory>
#include <ostream>
#include <string>

#include "tools/formats/difference_writer.h"

namespace vantiro {
namespace tools {

// Writes a page of its own: it needs no other file, and runs no script. What is
// the same in both records is on it, but hidden at first, except near a
// difference.
std::unique_ptr<DifferenceWriter> MakeDifferencePage(const std::string& title,
                                                     std::ostream* out);

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_PAGE_DIFFERENCE_PAGE_H_
