// Breaks one statement or declaration that is too long for a line.

#ifndef VANTIRO_COMPILER_STATEMENT_BREAKER_H_
#define VANTIRO_COMPILER_STATEMENT_BREAKER_H_

#include <string>

namespace vantiro {
namespace compiler {

inline constexpr int kColumnLimit = 80;
inline constexpr int kContinuationIndent = 4;

// The lines of `statement`, which starts at column `indentation`, broken as
// clang-format does in Google style: of all ways to break it the one with the
// lowest penalty. Knows what the templates need, no more.
std::string BreakStatement(int indentation, const std::string& statement);

}  // namespace compiler
}  // namespace vantiro

#endif  // VANTIRO_COMPILER_STATEMENT_BREAKER_H_
