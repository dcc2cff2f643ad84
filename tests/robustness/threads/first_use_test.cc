// The first use of every type, from eight threads at once. Only one test: after
// it everything is set up.

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <numeric>
#include <random>
#include <vector>

#include "tests/support/race.h"
#include "tests/support/types.h"

namespace vantiro {
namespace tests {
namespace {

TEST(FirstUse, FromManyThreadsSetsUpEachTypeOnce) {
  constexpr int kThreads = 8;
  const std::vector<Type>& types = AllTypes();
  std::vector<std::vector<const MessageLite*>> seen(kThreads);
  Race(kThreads, [&](int thread) {
    seen[thread].resize(types.size());
    std::vector<size_t> order(types.size());
    std::iota(order.begin(), order.end(), 0);
    std::shuffle(order.begin(), order.end(),
                 std::mt19937(static_cast<unsigned>(thread)));
    for (const size_t index : order) {
      const Type& type = types[index];
      const std::unique_ptr<MessageLite> message(type.create(nullptr));
      EXPECT_EQ(message->ByteSizeLong(), 0u);
      seen[thread][index] = &type.default_instance();
      EXPECT_EQ(seen[thread][index]->GetTypeName(), type.name);
    }
  });
  for (int thread = 1; thread < kThreads; ++thread) {
    EXPECT_EQ(seen[thread], seen[0]);
  }
}

}  // namespace
}  // namespace tests
}  // namespace vantiro
