// The names of the headers that emitted code includes, directly or not.

#ifndef VANTIRO_COMPILER_HEADER_NAMES_H_
#define VANTIRO_COMPILER_HEADER_NAMES_H_

namespace vantiro {
namespace compiler {

// Names between spaces and line breaks. One that ends in "*" stands for all
// names that begin so.

// Macros that stand for something else than their own name, as g++ and clang++
// define them on Linux from C++17 to C++20, with the extensions of GNU and
// without. "()" is appended to those with parameters.
extern const char kMacros[];

// What the C library declares in the global namespace, or the compiler knows
// there without a declaration.
extern const char kGlobalNames[];

}  // namespace compiler
}  // namespace vantiro

#endif  // VANTIRO_COMPILER_HEADER_NAMES_H_
