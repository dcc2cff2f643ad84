// Elements of repeated fields are matched with those that are most alike, in
// bounded time, and the differences tell what was done to a record.

#include "tools/record/difference.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "tests/conformance/model/samples.h"
#include "tools/record/alignment.h"
#include "tools/record/likeness.h"

namespace vantiro {
namespace tools {
namespace {

double LikenessOf(double a, double b) {
  if (a == b) return 1;
  return std::max(0.0, 0.99 - std::fabs(a - b) / 10);
}

std::vector<ElementPair> AlignNumbers(const std::vector<double>& before,
                                      const std::vector<double>& after,
                                      size_t* calls = nullptr) {
  const auto key = [](double value) { return std::hash<double>()(value); };
  return Align({before.size(), after.size(),
                [&](size_t i, size_t j) {
                  if (calls != nullptr) ++*calls;
                  return LikenessOf(before[i], after[j]);
                },
                [&](size_t i) { return key(before[i]); },
                [&](size_t i) { return key(after[i]); }});
}

// Every element is in one pair, in order.
void ExpectComplete(const std::vector<ElementPair>& pairs, size_t before_count,
                    size_t after_count) {
  size_t before = 0;
  size_t after = 0;
  for (const ElementPair& pair : pairs) {
    EXPECT_TRUE(pair.before.has_value() || pair.after.has_value());
    if (pair.before.has_value()) {
      EXPECT_EQ(*pair.before, before++);
    }
    if (pair.after.has_value()) {
      EXPECT_EQ(*pair.after, after++);
    }
  }
  EXPECT_EQ(before, before_count);
  EXPECT_EQ(after, after_count);
}

double SumOf(const std::vector<ElementPair>& pairs,
             const std::vector<double>& before,
             const std::vector<double>& after) {
  double sum = 0;
  for (const ElementPair& pair : pairs) {
    if (!pair.before.has_value() || !pair.after.has_value()) continue;
    const double likeness =
        LikenessOf(before[*pair.before], after[*pair.after]);
    if (likeness >= kMinLikeness) sum += likeness;
  }
  return sum;
}

// The greatest sum that pairs in order can have.
double BestSum(const std::vector<double>& before,
               const std::vector<double>& after) {
  std::vector<std::vector<double>> best(
      before.size() + 1, std::vector<double>(after.size() + 1, 0));
  for (size_t i = 1; i <= before.size(); ++i) {
    for (size_t j = 1; j <= after.size(); ++j) {
      const double likeness = LikenessOf(before[i - 1], after[j - 1]);
      best[i][j] = std::max(best[i - 1][j], best[i][j - 1]);
      if (likeness >= kMinLikeness) {
        best[i][j] = std::max(best[i][j], best[i - 1][j - 1] + likeness);
      }
    }
  }
  return best[before.size()][after.size()];
}

// No two numbers are equal, so that there are no anchors, and the sequences are
// short enough for each element to be near each other.
TEST(Alignment, HasTheBestSumOfShortSequences) {
  std::mt19937 random(1);
  std::uniform_real_distribution<double> number(0, 60);
  for (int round = 0; round < 300; ++round) {
    std::vector<double> before(random() % (kMaxShift / 2));
    std::vector<double> after(random() % (kMaxShift / 2));
    for (double& value : before) value = number(random);
    for (double& value : after) value = number(random);
    const std::vector<ElementPair> pairs = AlignNumbers(before, after);
    ExpectComplete(pairs, before.size(), after.size());
    EXPECT_NEAR(SumOf(pairs, before, after), BestSum(before, after), 1e-9);
  }
}

// In long sequences some elements are inserted, some removed, and all others
// changed a little, or none.
TEST(Alignment, FindsInsertionsAndRemovalsInLongSequences) {
  for (const double noise : {0.0, 1.0}) {
    std::mt19937 random(2);
    std::uniform_real_distribution<double> change(-noise, noise);
    std::vector<double> before;
    std::vector<double> after;
    std::vector<std::pair<size_t, size_t>> expected;
    for (size_t i = 0; i < 100000; ++i) {
      const double value = 100 * static_cast<double>(random() % 1000000);
      const bool is_removed = i % 1000 == 300;
      if (i % 900 == 17) after.push_back(value + 50);
      before.push_back(value);
      if (is_removed) continue;
      expected.emplace_back(before.size() - 1, after.size());
      after.push_back(value + change(random));
    }
    size_t calls = 0;
    const auto pairs = AlignNumbers(before, after, &calls);
    ExpectComplete(pairs, before.size(), after.size());
    std::vector<std::pair<size_t, size_t>> found;
    for (const ElementPair& pair : pairs) {
      if (pair.before.has_value() && pair.after.has_value()) {
        found.emplace_back(*pair.before, *pair.after);
      }
    }
    // An insertion beside a removal is a change.
    size_t missing = 0;
    for (const auto& pair : expected) {
      missing += std::binary_search(found.begin(), found.end(), pair) ? 0U : 1U;
    }
    EXPECT_EQ(missing, 0U) << "noise " << noise;
    EXPECT_LT(calls, 300 * before.size());
  }
}

// Also where nothing is alike, and where everything is equal.
TEST(Alignment, TakesTimeInProportionToTheElements) {
  const std::vector<double> zeros(100000, 0);
  std::vector<double> others(80000);
  for (size_t i = 0; i < others.size(); ++i) {
    others[i] = 100 + static_cast<double>(i % 2) * 100;
  }
  std::vector<double> shifted = zeros;
  shifted.front() = 100;
  shifted.back() = 200;
  for (const auto& after : {others, shifted, std::vector<double>(50000, 0)}) {
    size_t calls = 0;
    const auto pairs = AlignNumbers(zeros, after, &calls);
    ExpectComplete(pairs, zeros.size(), after.size());
    EXPECT_LT(calls, 300 * (zeros.size() + after.size()));
  }
}

// Random records of all roots, of which one is changed by removing an element
// of a repeated message: the differences are all removals, in that element.
TEST(Difference, IsOneRemovalIfAnElementIsRemoved) {
  std::mt19937 random(3);
  int compared = 0;
  for (const Descriptor* const root : Schema::BuiltIn().roots()) {
    SCOPED_TRACE(root->full_name());
    for (int round = 0; round < 10; ++round) {
      const std::string bytes =
          tests::RandomRecord(tests::FindType(root->full_name()),
                              tests::Values::kPlausible, &random);
      const Record before = DecodeRecord(*root, bytes).record;
      Record after = DecodeRecord(*root, bytes).record;
      for (auto& entry : after.fields) {
        const ArrayView<Record> elements = entry.second.mutable_messages();
        const std::string& name = entry.second.field().name();
        if (elements.size() < 2) continue;
        const size_t removed = random() % elements.size();
        // Elements that are alike cannot be told apart.
        const bool has_twin = std::any_of(
            elements.begin(), elements.end(), [&](const Record& element) {
              return &element != &elements[removed] &&
                     Likeness(element, elements[removed], 0) >= kMinLikeness;
            });
        if (has_twin) continue;
        ++compared;
        FieldValue others(entry.second.field());
        for (size_t i = 0; i < elements.size(); ++i) {
          if (i != removed) *others.AddMessage() = std::move(elements[i]);
        }
        entry.second = std::move(others);
        const std::string path = name + '[' + std::to_string(removed) + ']';
        size_t count = 0;
        Compare(before, after, {}, [&](const Difference& difference) {
          ++count;
          EXPECT_EQ(difference.kind, Difference::kRemoved);
          EXPECT_EQ(difference.before_path.substr(0, path.size()), path);
        });
        EXPECT_GT(count, 0U);
        break;
      }
    }
  }
  EXPECT_GT(compared, 20);
}

}  // namespace
}  // namespace tools
}  // namespace vantiro
