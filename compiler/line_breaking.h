// Breaks long lines of emitted code, so that templates need not care how long
// the names of a schema are.

#ifndef VANTIRO_COMPILER_LINE_BREAKING_H_
#define VANTIRO_COMPILER_LINE_BREAKING_H_

#include <string>

namespace vantiro {
namespace compiler {

// Breaks every line of `code` that is longer than 80 columns, where and as
// clang-format does in Google style. All other lines stay as they are.
//
// A line has to be a whole declaration, statement or comment. A function whose
// body is one statement is written on one line, which becomes three if it is
// too long. Handles what the templates need: declarations, calls, assignments
// and constructors' initialiser lists. A call inside a call is broken only if
// nothing else helps.
std::string BreakLongLines(const std::string& code);

}  // namespace compiler
}  // namespace vantiro

#endif  // VANTIRO_COMPILER_LINE_BREAKING_H_
