#include "internal/arena_chunk.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <vector>

namespace vantiro {
namespace internal {
namespace {

using google::protobuf::Arena;

// Fills all space that it takes with the number of the taking.
struct Taken {
  void* space;
  size_t size;
  char fill;
};

bool IsFilled(const Taken& taken) {
  const std::vector<char> expected(taken.size, taken.fill);
  return std::memcmp(taken.space, expected.data(), taken.size) == 0;
}

TEST(ArenaChunk, GivesSpaceThatNothingElseUses) {
  Arena arenas[2];
  ArenaChunk chunk;
  std::vector<Taken> all;
  for (unsigned i = 0; i < 500; ++i) {
    // The arena changes within a chunk; some sizes are those of no chunk.
    const size_t size = i % 50 == 49 ? 5000 : 1 + i * 7 % 300;
    void* const space = chunk.Take(size, &arenas[i / 3 % 2]);
    EXPECT_EQ(reinterpret_cast<uintptr_t>(space) % 8, 0U);
    std::memset(space, static_cast<int>(i), size);
    all.push_back({space, size, static_cast<char>(i)});
    // Space of the arena's own.
    std::memset(Arena::CreateArray<char>(&arenas[i % 2], 24), -1, 24);
  }
  for (const Taken& taken : all) EXPECT_TRUE(IsFilled(taken));
}

TEST(ArenaChunk, GivesSpaceOnTheArenaThatIsAskedFor) {
  Arena first;
  Arena second;
  ArenaChunk chunk;
  chunk.Take(8, &first);
  EXPECT_EQ(second.SpaceUsed(), 0U);
  chunk.Take(8, &second);
  EXPECT_GE(second.SpaceUsed(), 8U);
}

TEST(ArenaChunk, TakesLittleMoreFromTheArenaThanItGives) {
  for (const size_t size : std::vector<size_t>{8, 40, 104, 1000, 3000}) {
    Arena arena;
    ArenaChunk chunk;
    uint64_t given = 0;
    uint64_t used = 0;
    for (int i = 0; i < 200; ++i) {
      chunk.Take(size, &arena);
      given += size;
      const uint64_t step = arena.SpaceUsed() - used;
      used += step;
      const size_t most = i == 0 ? 256 : ArenaChunk::kMaxSize;
      EXPECT_LE(step, std::max(most, size));
      // What is lost at the end of a chunk is less than what it gave.
      EXPECT_LE(used, 2 * given + std::max(ArenaChunk::kMaxSize, size));
      EXPECT_GE(used, given);
    }
  }
}

}  // namespace
}  // namespace internal
}  // namespace vantiro
