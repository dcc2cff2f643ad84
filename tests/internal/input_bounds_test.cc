// When a packed run of floats is read at once.

#include "internal/input_bounds.h"

#include <gtest/gtest.h>

#include <vector>

namespace vantiro {
namespace internal {
namespace {

constexpr int kBudget = 100;

// A sub-message of the next level: how many bytes its length exceeds the end of
// the message around it, or 0 if it fits.
using Levels = std::vector<ptrdiff_t>;

// The most bytes that a run within the innermost of the messages may lack and
// still be read at once, or -1 if none is.
ptrdiff_t MostMissing(const FlattenedInput* flattened, const Levels& levels) {
  InputBounds bounds(kBudget, flattened);
  int budget = kBudget;
  for (const ptrdiff_t level : levels) {
    --budget;
    if (level > 0) bounds.EnterTruncatedMessage(budget, level);
  }
  ptrdiff_t missing = -1;
  while (missing < 20 && bounds.IsReadAtOnce(budget, missing + 1)) ++missing;
  EXPECT_EQ(bounds.IsReadAtOnce(budget, -1), missing >= 0);
  return missing;
}

struct Case {
  Levels levels;
  ptrdiff_t most_missing;
};

void ExpectMostMissing(const FlattenedInput* flattened,
                       const std::vector<Case>& cases) {
  for (const Case& c : cases) {
    EXPECT_EQ(MostMissing(flattened, c.levels), c.most_missing)
        << testing::PrintToString(c.levels);
  }
}

// A message that is there as a whole is a limit, also within a truncated one,
// and for a truncated one within it.
const std::vector<Case> kInAMessageThatIsThere = {
    {{0}, 0}, {{8, 0}, 0}, {{0, 8}, 0}, {{8, 0, 8}, 0}, {{8, 0, 0, 8}, 0}};

TEST(PackedRun, IsReadAtOnceUpToTheEndOfTheInputWhereItIsKnown) {
  FlattenedInput limited;
  limited.has_limit = true;
  const FlattenedInput* const inputs[] = {&limited, nullptr};
  for (const FlattenedInput* input : inputs) {
    ExpectMostMissing(input, kInAMessageThatIsThere);
    ExpectMostMissing(input, {{{}, 0}, {{8}, 0}, {{8, 8}, 0}});
  }
}

TEST(PackedRun, IsReadAtOnceWhereTheNearestLimitAllowsForIt) {
  FlattenedInput open_ended;
  open_ended.has_limit = false;
  open_ended.missing = PTRDIFF_MAX;
  ExpectMostMissing(&open_ended, kInAMessageThatIsThere);
  ExpectMostMissing(
      &open_ended,
      {{{}, -1}, {{8}, 8}, {{8, 12}, 8}, {{12, 8}, 8}, {{12, 8, 10}, 8}});

  FlattenedInput ended_early;
  ended_early.has_limit = true;
  ended_early.missing = 10;
  ExpectMostMissing(&ended_early, kInAMessageThatIsThere);
  ExpectMostMissing(&ended_early, {{{}, 10}, {{8}, 8}, {{12}, 10}});

  FlattenedInput total_limit_only;
  total_limit_only.has_limit = false;
  total_limit_only.missing = 10;
  ExpectMostMissing(&total_limit_only, kInAMessageThatIsThere);
  ExpectMostMissing(&total_limit_only, {{{}, -1}, {{8}, 8}, {{12}, 10}});
}

}  // namespace
}  // namespace internal
}  // namespace vantiro
