// Statistics of random records are those of a naive computation over the paths
// and values of the records.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <map>
#include <random>
#include <regex>
#include <set>
#include <string>
#include <vector>

#include "tests/conformance/model/samples.h"
#include "tools/record/leaves.h"
#include "tools/statistics/field_statistics.h"

namespace vantiro {
namespace tools {
namespace {

// Of one field.
struct Naive {
  size_t record_count = 0;
  std::vector<std::string> values;

  // Wide enough for all 64-bit numbers; without NaNs.
  std::vector<long double> SortedNumbers() const {
    std::vector<long double> numbers;
    for (const std::string& value : values) {
      const long double number = std::strtold(value.c_str(), nullptr);
      if (!std::isnan(number)) numbers.push_back(number);
    }
    std::sort(numbers.begin(), numbers.end());
    return numbers;
  }
};

using NaiveByPath = std::map<std::string, Naive>;

void AddNaively(const Record& record, NaiveByPath* fields) {
  static const std::regex index("\\[\\d+\\]");
  std::set<std::string> paths;
  VisitLeaves(record, "",
              [&](const std::string& leaf, const std::string& text) {
                const std::string path = std::regex_replace(leaf, index, "");
                (*fields)[path].values.push_back(text);
                paths.insert(path);
              });
  for (const std::string& path : paths) ++(*fields)[path].record_count;
}

void ExpectNumbers(const Naive& naive, const FieldStatistics& field) {
  const std::vector<long double> numbers = naive.SortedNumbers();
  ASSERT_EQ(field.numbers.count(), numbers.size());
  EXPECT_EQ(field.nan_count, naive.values.size() - numbers.size());
  if (numbers.empty()) return;
  const auto value = [](Number number) {
    return std::strtold(number.Text().c_str(), nullptr);
  };
  EXPECT_EQ(value(field.numbers.Minimum()), numbers.front());
  EXPECT_EQ(value(field.numbers.Maximum()), numbers.back());
  const long double a = numbers[(numbers.size() - 1) / 2];
  const long double b = numbers[numbers.size() / 2];
  const long double median = a == b ? a : a + (b - a) / 2;
  const bool is_exact =
      std::set<long double>(numbers.begin(), numbers.end()).size() <=
      Distribution::kMaxExact;
  EXPECT_EQ(field.numbers.IsExact(), is_exact);
  // The mean of two floats is shown as a float.
  const long double relative_error = !is_exact ? Distribution::kMaxError
                                     : a == b  ? 0
                                               : 2e-7L;
  const long double error =
      std::max(std::fabs(a), std::fabs(b)) * relative_error + 1e-44L;
  if (std::isinf(a) || std::isinf(b)) {
    EXPECT_EQ(value(field.numbers.Median()), std::isinf(a) ? a : b);
  } else {
    EXPECT_LE(std::fabs(value(field.numbers.Median()) - median), error)
        << median;
  }
}

void ExpectCounts(const Naive& naive, const FieldStatistics& field) {
  std::map<std::string, size_t> expected;
  size_t undeclared = 0;
  for (const std::string& value : naive.values) {
    const bool is_declared =
        field.field->enum_type() == nullptr || std::isalpha(value[0]) != 0;
    if (!is_declared) ++undeclared;
    ++expected[value];
  }
  size_t sum = field.undeclared_count;
  for (const auto& entry : field.counts) sum += entry.second;
  EXPECT_EQ(sum, naive.values.size());
  if (field.undeclared_count > 0) {
    EXPECT_EQ(field.undeclared_count, undeclared);
  } else {
    EXPECT_EQ(field.counts.size(), expected.size());
  }
}

void ExpectAsNaive(const NaiveByPath& expected,
                   const RecordStatistics& statistics) {
  uint64_t top_level_size = 0;
  size_t compared = 0;
  statistics.Visit([&](const std::string& path, const FieldStatistics& field) {
    SCOPED_TRACE(path);
    if (path.find('.') == std::string::npos) top_level_size += field.total_size;
    EXPECT_LE(field.record_count, statistics.record_count());
    EXPECT_LE(field.sizes.count(), statistics.record_count());
    if (field.field == nullptr || field.field->message_type() != nullptr) {
      return;
    }
    // Some are in the bytes with their default value only.
    ASSERT_EQ(expected.count(path), field.record_count == 0 ? 0U : 1U);
    if (field.record_count == 0) return;
    const Naive& naive = expected.at(path);
    ++compared;
    EXPECT_EQ(field.record_count, naive.record_count);
    EXPECT_EQ(field.value_count, naive.values.size());
    if (!field.counts.empty() || field.undeclared_count > 0) {
      ExpectCounts(naive, field);
    } else if (field.field->cpp_type() != FieldDescriptor::CPPTYPE_STRING) {
      ExpectNumbers(naive, field);
    }
  });
  EXPECT_EQ(top_level_size, statistics.total_size());
  const auto values = std::count_if(
      expected.begin(), expected.end(),
      [](const auto& entry) { return entry.second.values[0] != "{}"; });
  EXPECT_GE(compared, static_cast<size_t>(values));
}

TEST(RecordStatistics, AreThoseOfANaiveComputation) {
  std::mt19937 random(1);
  for (const Descriptor* const root : Schema::BuiltIn().roots()) {
    SCOPED_TRACE(root->full_name());
    NaiveByPath naive;
    RecordStatistics statistics;
    for (int i = 0; i < 40; ++i) {
      const std::string bytes = tests::RandomRecord(
          tests::FindType(root->full_name()),
          i % 2 == 0 ? tests::Values::kPlausible : tests::Values::kExtreme,
          &random);
      const RecordTree tree = ReadRecord(*root, bytes);
      Record record = DecodeRecord(*tree.type, tree.bytes).record;
      RemoveDefaults(&record);
      AddNaively(record, &naive);
      statistics.Add(tree, record);
    }
    ExpectAsNaive(naive, statistics);
  }
}

// Above the limit the median is near the exact one, and the same for any order
// of the values.
TEST(Distribution, EstimatesTheMedianOfManyValuesInAnyOrder) {
  std::mt19937 random(2);
  for (const double scale : {1e-30, 1.0, 1e30}) {
    std::normal_distribution<double> distribution(scale, scale);
    std::vector<float> values(50001);
    for (float& value : values) {
      value = static_cast<float>(distribution(random));
    }
    Distribution forward(Number::kFloating);
    Distribution backward(Number::kFloating);
    for (size_t i = 0; i < values.size(); ++i) {
      forward.Add(Number::Of(double{values[i]}));
      backward.Add(Number::Of(double{values[values.size() - 1 - i]}));
    }
    std::sort(values.begin(), values.end());
    const auto median = double{values[values.size() / 2]};
    EXPECT_FALSE(forward.IsExact());
    EXPECT_NEAR(forward.Median().ToDouble(), median,
                std::fabs(median) * Distribution::kMaxError);
    EXPECT_EQ(forward.Median().rank(), backward.Median().rank());
    EXPECT_EQ(forward.Minimum().ToDouble(), double{values.front()});
    EXPECT_EQ(forward.Maximum().ToDouble(), double{values.back()});
  }
}

}  // namespace
}  // namespace tools
}  // namespace vantiro
