// What a command says about one record.

#ifndef VANTIRO_TOOLS_IO_REPORT_H_
#define VANTIRO_TOOLS_IO_REPORT_H_

#include <string>

namespace vantiro {
namespace tools {

enum ExitStatus { kSuccess = 0, kFound = 1, kWrongUse = 2 };

struct Report {
  // For standard error, before the output and after it.
  std::string notes;
  std::string errors;
  std::string output;
  ExitStatus status = kSuccess;
  bool is_damaged = false;
};

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_IO_REPORT_H_
