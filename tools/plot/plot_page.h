// A plot as an HTML page.

#ifndef VANTIRO_TOOLS_PLOT_PLOT_PAGE_H_
#define VANTIRO_TOOLS_PLOT_PLOT_PAGE_H_

#include <ostream>
#include <string>

namespace vantiro {
namespace tools {

// Writes a page that needs no other file and runs no script: `svg` is an <svg>
// element, and `summary` a line of text under the title.
void WritePlotPage(const std::string& title, const std::string& summary,
                   const std::string& svg, std::ostream* out);

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_PLOT_PLOT_PAGE_H_
