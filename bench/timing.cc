#include "bench/timing.h"

#include <algorithm>
#include <chrono>
#include <cstring>
#include <limits>
#include <string>

namespace vantiro {
namespace bench {
namespace {

constexpr double kBatchNanoseconds = 2e5;

double Nanoseconds(Work* work, int times) {
  const auto start = std::chrono::steady_clock::now();
  work->Run(times);
  return std::chrono::duration<double, std::nano>(
             std::chrono::steady_clock::now() - start)
      .count();
}

class Memcpy final : public Work {
 public:
  explicit Memcpy(size_t size) : from_(size, 'x'), to_(size, ' ') {}

  void Run(int times) override {
    for (; times > 0; --times) {
      std::memcpy(to_.data(), from_.data(), from_.size());
      // Each copy counts: memory is read here, as far as the compiler knows.
      asm volatile("" : : "r"(to_.data()) : "memory");
    }
  }

 private:
  std::string from_;
  std::string to_;
};

}  // namespace

std::vector<double> LeastTimes(const std::vector<std::unique_ptr<Work>>& works,
                               int batches) {
  int times = 1;
  while (Nanoseconds(works[0].get(), times) < kBatchNanoseconds) times *= 2;
  std::vector<double> least(works.size(),
                            std::numeric_limits<double>::infinity());
  for (; batches > 0; --batches) {
    for (size_t i = 0; i < works.size(); ++i) {
      least[i] = std::min(least[i], Nanoseconds(works[i].get(), times) / times);
    }
  }
  return least;
}

double TimeOfMemcpy(size_t size, int batches) {
  std::vector<std::unique_ptr<Work>> works;
  works.push_back(std::make_unique<Memcpy>(size));
  return LeastTimes(works, batches)[0];
}

}  // namespace bench
}  // namespace vantiro
