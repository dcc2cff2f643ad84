// Threads that start at the same moment.

#ifndef VANTIRO_TESTS_SUPPORT_RACE_H_
#define VANTIRO_TESTS_SUPPORT_RACE_H_

#include <atomic>
#include <functional>
#include <thread>
#include <vector>

namespace vantiro {
namespace tests {

// Runs `work` on `count` threads, let loose together; each gets its number.
inline void Race(int count, const std::function<void(int)>& work) {
  std::atomic<int> waiting{0};
  std::vector<std::thread> threads;
  for (int i = 0; i < count; ++i) {
    threads.emplace_back([&, i] {
      ++waiting;
      while (waiting < count) std::this_thread::yield();
      work(i);
    });
  }
  for (std::thread& thread : threads) thread.join();
}

}  // namespace tests
}  // namespace vantiro

#endif  // VANTIRO_TESTS_SUPPORT_RACE_H_
