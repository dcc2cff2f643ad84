#include "compiler/reserved_names.h"

#include <iterator>
#include <set>
#include <sstream>

#include "compiler/header_names.h"

namespace vantiro {
namespace compiler {
namespace {

const char kKeywords[] = R"(
NULL alignas alignof and and_eq asm auto bitand bitor bool break case catch char
class compl const const_cast constexpr continue decltype default delete do
double dynamic_cast else enum explicit export extern false float for friend goto
if inline int long mutable namespace new noexcept not not_eq nullptr operator or
or_eq private protected public register reinterpret_cast return short signed
sizeof static static_assert static_cast struct switch template this thread_local
throw true try typedef typeid typename union unsigned using virtual void
volatile wchar_t while xor xor_eq
)";

const char kLaterKeywords[] = R"(
char16_t char32_t char8_t co_await co_return co_yield concept consteval
constinit requires typeof
)";

class NameTable {
 public:
  // `text` is as in header_names.h.
  explicit NameTable(const char* text) {
    std::istringstream stream(text);
    for (std::string word; stream >> word;) {
      if (word.back() == '*') {
        prefixes_.insert(word.substr(0, word.size() - 1));
      } else {
        names_.insert(word);
      }
    }
  }

  bool Has(const std::string& name) const {
    if (names_.count(name) > 0) return true;
    // A prefix of a name is the last one that does not sort behind it.
    const auto behind = prefixes_.upper_bound(name);
    return behind != prefixes_.begin() &&
           name.compare(0, std::prev(behind)->size(), *std::prev(behind)) == 0;
  }

 private:
  std::set<std::string> names_;
  std::set<std::string> prefixes_;
};

const NameTable& Macros() {
  static const auto* const table = new NameTable(kMacros);
  return *table;
}

}  // namespace

bool IsKeyword(const std::string& name) {
  static const auto* const table = new NameTable(kKeywords);
  return table->Has(name);
}

bool IsLaterKeyword(const std::string& name) {
  static const auto* const table = new NameTable(kLaterKeywords);
  return table->Has(name);
}

bool IsMacro(const std::string& name) { return Macros().Has(name); }

bool IsFunctionLikeMacro(const std::string& name) {
  return Macros().Has(name + "()");
}

bool IsGlobalName(const std::string& name) {
  static const auto* const table = new NameTable(kGlobalNames);
  return table->Has(name);
}

bool IsOfTheCompiler(const std::string& name) {
  return name.size() > 1 && name[0] == '_' &&
         (name[1] == '_' || (name[1] >= 'A' && name[1] <= 'Z'));
}

}  // namespace compiler
}  // namespace vantiro
