// How a fuzz target says that something is wrong.

#ifndef VANTIRO_TESTS_ROBUSTNESS_FUZZ_CHECK_H_
#define VANTIRO_TESTS_ROBUSTNESS_FUZZ_CHECK_H_

#include <string>

namespace vantiro {
namespace tests {

// Ends the program, showing both sides, unless they are equal. `what` says what
// was compared, and where.
void CheckEqual(const std::string& got, const std::string& wanted,
                const std::string& what);
void CheckEqual(bool got, bool wanted, const std::string& what);

}  // namespace tests
}  // namespace vantiro

#endif  // VANTIRO_TESTS_ROBUSTNESS_FUZZ_CHECK_H_
