// What the demo checks while it shows it.

#ifndef VANTIRO_EXAMPLES_DEMO_CHECKS_H_
#define VANTIRO_EXAMPLES_DEMO_CHECKS_H_

#include <iostream>
#include <string>

namespace vantiro::examples {

class Checks {
 public:
  // Prints whether `what` holds, and remembers it if not.
  void Expect(bool holds, const std::string& what) {
    std::cout << (holds ? "  ok      " : "  FAILED  ") << what << "\n";
    all_hold_ = all_hold_ && holds;
  }

  [[nodiscard]] bool all_hold() const { return all_hold_; }

 private:
  bool all_hold_ = true;
};

}  // namespace vantiro::examples

#endif  // VANTIRO_EXAMPLES_DEMO_CHECKS_H_
