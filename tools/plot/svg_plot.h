// Plots as SVG.

#ifndef VANTIRO_TOOLS_PLOT_SVG_PLOT_H_
#define VANTIRO_TOOLS_PLOT_SVG_PLOT_H_

#include <ostream>
#include <string>
#include <vector>

#include "tools/plot/histogram.h"
#include "tools/plot/series.h"

namespace vantiro {
namespace tools {

// Each writes an <svg> element, which is a document of its own and can also be
// a part of a page. `title` is its name; it needs values.
void WriteSvgSeries(const std::string& title, const Series& series,
                    std::ostream* out);
void WriteSvgHistogram(const std::string& title, const std::vector<Bin>& bins,
                       std::ostream* out);

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_PLOT_SVG_PLOT_H_
