#include "tests/robustness/fuzz/check.h"

#include <cstdio>
#include <cstdlib>

#include "tests/support/bytes.h"

namespace vantiro {
namespace tests {
namespace {

[[noreturn]] void Fail(const std::string& got, const std::string& wanted,
                       const std::string& what) {
  std::fprintf(stderr, "%s\n  got:    %s\n  wanted: %s\n", what.c_str(),
               got.c_str(), wanted.c_str());
  std::abort();
}

}  // namespace

void CheckEqual(const std::string& got, const std::string& wanted,
                const std::string& what) {
  if (got != wanted) Fail(ToHex(got), ToHex(wanted), what);
}

void CheckEqual(bool got, bool wanted, const std::string& what) {
  if (got != wanted) {
    Fail(got ? "true" : "false", wanted ? "true" : "false", what);
  }
}

}  // namespace tests
}  // namespace vantiro
