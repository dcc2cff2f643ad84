// The names that C++ and the headers included by emitted code keep for
// themselves.

#ifndef VANTIRO_COMPILER_RESERVED_NAMES_H_
#define VANTIRO_COMPILER_RESERVED_NAMES_H_

#include <string>

namespace vantiro {
namespace compiler {

// The keywords that the 3.9.1 compiler knows. It appends "_" to such a name.
bool IsKeyword(const std::string& name);

// The keywords that it does not know: of C++11, C++20 and GNU.
bool IsLaterKeyword(const std::string& name);

// Macros. One with parameters only replaces a name before "(".
bool IsMacro(const std::string& name);
bool IsFunctionLikeMacro(const std::string& name);

// What stands in the global namespace already.
bool IsGlobalName(const std::string& name);

// Two underscores at the start, or one and a capital letter: any compiler or
// header may give such a name a meaning.
bool IsOfTheCompiler(const std::string& name);

}  // namespace compiler
}  // namespace vantiro

#endif  // VANTIRO_COMPILER_RESERVED_NAMES_H_
