// Plots in characters.

#ifndef VANTIRO_TOOLS_PLOT_TERMINAL_PLOT_H_
#define VANTIRO_TOOLS_PLOT_TERMINAL_PLOT_H_

#include <cstddef>
#include <string>
#include <vector>

#include "tools/plot/histogram.h"
#include "tools/plot/series.h"

namespace vantiro {
namespace tools {

struct TerminalOptions {
  // Of a line, in characters.
  size_t width = 80;
  // Without characters beyond ASCII.
  bool is_ascii = false;
};

// The values from left to right, with their scale. Needs a value.
std::string TerminalSeries(const Series& series,
                           const TerminalOptions& options);

// A bar for each bin.
std::string TerminalHistogram(const std::vector<Bin>& bins,
                              const TerminalOptions& options);

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_PLOT_TERMINAL_PLOT_H_
