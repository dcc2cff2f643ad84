// Cases in which Protocol Buffers 3.9 itself does not do what the classes have
// to do. tests/data/differences_3_9.txt lists them.

#ifndef VANTIRO_TESTS_SUPPORT_DIFFERENCES_H_
#define VANTIRO_TESTS_SUPPORT_DIFFERENCES_H_

#include <functional>
#include <set>
#include <string>

namespace vantiro {
namespace tests {

// The listed cases of the test that is running; over other versions none.
class Differences {
 public:
  Differences();
  // Fails the test if a listed case was not checked.
  ~Differences();
  Differences(const Differences&) = delete;
  Differences& operator=(const Differences&) = delete;

  // Does what `check` does, but for a listed case expects it to fail.
  void Check(const std::string& case_name, const std::function<void()>& check);

 private:
  std::set<std::string> listed_;
  std::set<std::string> checked_;
};

}  // namespace tests
}  // namespace vantiro

#endif  // VANTIRO_TESTS_SUPPORT_DIFFERENCES_H_
