// Templates of C++ code with named variables, from which all code is emitted.

#ifndef VANTIRO_COMPILER_TEMPLATE_H_
#define VANTIRO_COMPILER_TEMPLATE_H_

#include <map>
#include <string>

namespace vantiro {
namespace compiler {

// The names of variables and their values.
using Variables = std::map<std::string, std::string>;

// Returns `text` with the value of each variable in place of its `$name$`.
//
// `text` is meant to be a raw string that reads as the code it makes: a line
// break at its start is dropped, and so is the indentation that all of its
// lines share. A variable alone on its line may have any number of lines, each
// of which is indented like the variable; if it is empty, its line is left out.
// A variable that is not in `variables` ends the program: that is a bug of the
// template.
std::string Substitute(const Variables& variables, const std::string& text);

// `base` with the entries of `more` added or replaced.
Variables Combine(Variables base, const Variables& more);

}  // namespace compiler
}  // namespace vantiro

#endif  // VANTIRO_COMPILER_TEMPLATE_H_
