// Text with named holes, from which all emitted code is made.

#ifndef VANTIRO_COMPILER_TEMPLATE_H_
#define VANTIRO_COMPILER_TEMPLATE_H_

#include <map>
#include <string>

namespace vantiro {
namespace compiler {

// The names of holes and what fills them.
using Holes = std::map<std::string, std::string>;

// Returns `text` with every hole `$name$` filled.
//
// `text` is meant to be a raw string that reads as the code it makes: a line
// break at its start is dropped, and so is the indentation that all of its
// lines share. A hole alone on its line may be filled with any number of lines,
// each of which is indented like the hole; filled with nothing, it takes its
// line away. A hole without an entry in `holes` ends the program: that is a
// fault of the template.
std::string Fill(const Holes& holes, const std::string& text);

// `base` with the entries of `more` added or replaced.
Holes With(Holes base, const Holes& more);

}  // namespace compiler
}  // namespace vantiro

#endif  // VANTIRO_COMPILER_TEMPLATE_H_
