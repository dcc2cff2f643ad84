// The names that emitted code declares, read from the code itself: so the
// templates stay the only description of what a class has.

#ifndef VANTIRO_COMPILER_DECLARATIONS_H_
#define VANTIRO_COMPILER_DECLARATIONS_H_

#include <string>
#include <vector>

namespace vantiro {
namespace compiler {

struct Declaration {
  enum Kind { kFunction, kClass, kOther };

  std::string name;
  Kind kind;
  // What tells functions of one name apart: the types of the parameters, and
  // whether the function is const. Empty for all other kinds.
  std::string signature;
};

// What `code` declares at its outermost level, and the values of the enums
// there. Understands the C++ that the templates use, no more. Constructors,
// destructors, operators and friends have no name of their own.
std::vector<Declaration> DeclarationsIn(const std::string& code);

// The members of the first class that `code` defines.
std::vector<Declaration> MembersOfClassIn(const std::string& code);

}  // namespace compiler
}  // namespace vantiro

#endif  // VANTIRO_COMPILER_DECLARATIONS_H_
