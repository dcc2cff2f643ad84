// Work in threads has the results of work without threads, in their order, with
// a bounded number of results in memory.

#include "tools/io/ordered_work.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <stdexcept>

namespace vantiro {
namespace tools {
namespace {

constexpr size_t kTaskCount = 400;

using Work = OrderedWork<size_t, size_t>;

std::optional<size_t> Take(size_t* next) {
  if (*next == kTaskCount) return std::nullopt;
  return (*next)++;
}

TEST(OrderedWork, FinishesInOrderWithinTheWindow) {
  for (const size_t thread_count : {1U, 2U, 7U}) {
    size_t next = 0;
    size_t max_waiting = 0;
    std::vector<size_t> finished;
    Work({[&] {
            max_waiting = std::max(max_waiting, next - finished.size());
            return Take(&next);
          },
          [](size_t task) {
            // Every tenth task holds up those behind it.
            if (task % 10 == 0) {
              std::this_thread::sleep_for(std::chrono::milliseconds(1));
            }
            return 3 * task;
          },
          [&](size_t result) { finished.push_back(result); }})
        .Run(thread_count);
    ASSERT_EQ(finished.size(), kTaskCount);
    for (size_t i = 0; i < kTaskCount; ++i) EXPECT_EQ(finished[i], 3 * i);
    EXPECT_LE(max_waiting, 4 * thread_count) << thread_count << " threads";
  }
}

// An exception in any step ends the work instead of leaving threads that wait.
TEST(OrderedWork, ThrowsWhatAStepThrows) {
  const auto fail_at = [](size_t step, size_t failing) {
    if (step == failing) throw std::runtime_error("step failed");
  };
  for (const size_t thread_count : {1U, 4U}) {
    for (const size_t failing : {1U, 2U, 3U}) {
      size_t next = 0;
      size_t finished_count = 0;
      Work work({[&] {
                   if (next == 50) fail_at(1, failing);
                   return Take(&next);
                 },
                 [&](size_t task) {
                   if (task == 50) fail_at(2, failing);
                   return task;
                 },
                 [&](size_t result) {
                   if (result == 50) fail_at(3, failing);
                   ++finished_count;
                 }});
      EXPECT_THROW(work.Run(thread_count), std::runtime_error)
          << thread_count << " threads, step " << failing;
      EXPECT_LE(finished_count, 50U);
    }
  }
}

}  // namespace
}  // namespace tools
}  // namespace vantiro
