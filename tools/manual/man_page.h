// The program's help as a manual page.

#ifndef VANTIRO_TOOLS_MANUAL_MAN_PAGE_H_
#define VANTIRO_TOOLS_MANUAL_MAN_PAGE_H_

#include <CLI/CLI.hpp>
#include <ostream>
#include <string>

namespace vantiro {
namespace tools {

void WriteManPage(const CLI::App& program, const std::string& version,
                  std::ostream* out);

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_MANUAL_MAN_PAGE_H_
