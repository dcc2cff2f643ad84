#include "tools/identify/carrier.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>

namespace vantiro {
namespace tools {
namespace {

// How many bytes before and behind a span are looked at, in whole blocks.
constexpr size_t kBlockSize = size_t{4} << 10;
constexpr size_t kDistances[] = {1, 2, 4, 8};
constexpr size_t kDistanceCount = std::size(kDistances);
// A predictor that has failed has at least this weight, so that it can recover.
constexpr double kMinWeight = 1.0 / 256;
constexpr double kRepeats = 0.9;

// Of the same place in the file.
bool AreSame(std::string_view one, std::string_view other) {
  return one.data() == other.data() && one.size() == other.size();
}

// Mixes the predictions by how good they were so far.
class Mixer {
 public:
  Mixer(std::string_view file, const std::array<double, 256>& frequencies)
      : file_(file), frequencies_(frequencies) {
    weights_.fill(1.0 / (kDistanceCount + 1));
  }

  double Bits(size_t at) {
    std::array<double, kDistanceCount + 1> predicted;
    const double by_frequency = frequencies_[static_cast<uint8_t>(file_[at])];
    predicted[kDistanceCount] = by_frequency;
    for (size_t i = 0; i < kDistanceCount; ++i) {
      const bool repeats =
          at >= kDistances[i] && file_[at - kDistances[i]] == file_[at];
      predicted[i] = (1 - kRepeats) * by_frequency + (repeats ? kRepeats : 0);
    }
    double sum = 0;
    for (size_t i = 0; i < predicted.size(); ++i) {
      weights_[i] *= predicted[i];
      sum += weights_[i];
    }
    for (double& weight : weights_) weight = std::max(weight / sum, kMinWeight);
    return -std::log2(sum);
  }

 private:
  const std::string_view file_;
  const std::array<double, 256>& frequencies_;
  std::array<double, kDistanceCount + 1> weights_;
};

}  // namespace

std::vector<double> Carrier::Bits(const Span& span) {
  Mixer mixer(file_, Around(span));
  std::vector<double> sums = {0};
  sums.reserve(span.size + 1);
  for (size_t at = span.offset; at < span.end(); ++at) {
    sums.push_back(sums.back() + mixer.Bits(at));
  }
  return sums;
}

const Carrier::Frequencies& Carrier::Around(const Span& span) {
  const size_t end = span.offset / kBlockSize * kBlockSize;
  const size_t begin = end - std::min(end, kBlockSize);
  const size_t next = std::min(
      (span.end() + kBlockSize - 1) / kBlockSize * kBlockSize, file_.size());
  // Between the blocks is the span, and what is near it.
  std::string_view before = file_.substr(begin, end - begin);
  std::string_view behind = file_.substr(next, kBlockSize);
  // A small file has less.
  if (before.empty()) before = file_.substr(0, span.offset);
  if (behind.empty()) behind = file_.substr(span.end());
  if (AreSame(before, before_) && AreSame(behind, behind_)) return frequencies_;
  before_ = before;
  behind_ = behind;
  // As if each byte had occurred once more.
  frequencies_.fill(1);
  for (const std::string_view part : {before, behind}) {
    for (const char c : part) ++frequencies_[static_cast<uint8_t>(c)];
  }
  const auto total = static_cast<double>(256 + before.size() + behind.size());
  for (double& count : frequencies_) count /= total;
  return frequencies_;
}

}  // namespace tools
}  // namespace vantiro
