// When an unpacked element may look ahead, and what is kept of a packed run of
// floats that the end of the input truncates.

#include "internal/input_bounds.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace vantiro {
namespace internal {
namespace {

constexpr int kBudget = 100;

TEST(LookAhead, GoesToTheEndOfTheMessageInOnePiece) {
  const uint8_t bytes[10] = {};
  const InputBounds bounds(kBudget, nullptr);
  EXPECT_EQ(bounds.EndOfLookAhead(bytes + 1, bytes + 10), bytes + 10);
  EXPECT_EQ(bounds.EndOfLookAhead(bytes + 6, bytes + 6), bytes + 6);
}

TEST(LookAhead, GoesToTheEndOfTheChunkOfTheByteBefore) {
  FlattenedInput flattened;
  flattened.bytes = "0123456789";
  flattened.chunk_ends = {1, 4, 8, 26};
  const InputBounds bounds(kBudget, &flattened);
  const int chunk_end[] = {1, 4, 4, 4, 8, 8, 8, 8, 10, 10};
  for (int p = 1; p <= 10; ++p) {
    for (int end = p; end <= 10; ++end) {
      EXPECT_EQ(bounds.EndOfLookAhead(flattened.begin() + p,
                                      flattened.begin() + end) -
                    flattened.begin(),
                std::min(end, chunk_end[p - 1]))
          << "at " << p << " in a message that ends at " << end;
    }
  }
}

// A sub-message of the next level: how many bytes its length exceeds the end of
// the message around it, or 0 if it fits.
using Levels = std::vector<ptrdiff_t>;

// Whether a run within the innermost of the messages is kept that exceeds the
// end of this message by `missing` bytes.
bool Keeps(const FlattenedInput* flattened, const Levels& levels,
           ptrdiff_t missing) {
  InputBounds bounds(kBudget, flattened);
  int budget = kBudget;
  for (const ptrdiff_t level : levels) {
    --budget;
    if (level > 0) bounds.EnterTruncatedMessage(budget, level);
  }
  return bounds.KeepsTruncatedRun(budget, missing);
}

TEST(TruncatedRun, IsKeptWhereTheEndOfTheInputIsKnown) {
  FlattenedInput limited;
  limited.has_limit = true;
  const FlattenedInput* const inputs[] = {&limited, nullptr};
  for (const FlattenedInput* input : inputs) {
    for (const Levels& levels : {Levels{}, {0}, {8}, {8, 8}, {0, 8}, {8, 0}}) {
      for (const ptrdiff_t missing : {1, 8, 9}) {
        EXPECT_TRUE(Keeps(input, levels, missing));
      }
    }
  }
}

TEST(TruncatedRun, IsDroppedWhereTheNearestLimitAllowsForIt) {
  FlattenedInput open_ended;
  open_ended.has_limit = false;
  const struct {
    Levels levels;
    // The most that a run may lack and still be within the nearest limit.
    ptrdiff_t allowed;
  } cases[] = {
      {{}, 0},            // No limit at all.
      {{8}, 8},           // The message itself is truncated.
      {{8, 12}, 8},       // The tighter of two messages.
      {{12, 8}, 8},       //
      {{12, 8, 10}, 8},   //
      {{0}, 0},           // A message that is there as a whole is a limit,
      {{8, 0}, 0},        // also within a truncated one,
      {{0, 8}, 0},        // and for a truncated one within it,
      {{8, 0, 8}, 0},     //
      {{0, 8, 8}, 0},     //
      {{8, 0, 0, 8}, 0},  //
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::PrintToString(c.levels));
    for (ptrdiff_t missing = 1; missing <= 13; ++missing) {
      EXPECT_EQ(Keeps(&open_ended, c.levels, missing), missing > c.allowed)
          << "of a run that lacks " << missing;
    }
  }
}

}  // namespace
}  // namespace internal
}  // namespace vantiro
