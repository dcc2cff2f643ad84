// Which elements of two sequences belong together.

#ifndef VANTIRO_TOOLS_RECORD_ALIGNMENT_H_
#define VANTIRO_TOOLS_RECORD_ALIGNMENT_H_

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

namespace vantiro {
namespace tools {

// Two elements that belong together, or one that has none in the other
// sequence.
struct ElementPair {
  std::optional<size_t> before;
  std::optional<size_t> after;
};

// The sequences, by the indexes of their elements.
struct Sequences {
  size_t before_count;
  size_t after_count;
  // How alike two elements are: 1 if they are equal, less otherwise; below
  // kMinLikeness they are different ones.
  std::function<double(size_t before, size_t after)> likeness;
  // Equal for equal elements.
  std::function<uint64_t(size_t before)> before_key;
  std::function<uint64_t(size_t after)> after_key;
};

constexpr double kMinLikeness = 0.5;

// The pairs in the order of both sequences. What is equal at the begin and at
// the end belongs together; then elements that are equal and unlike all others
// of their sequence, if there are no more than kMaxAnchored; then, between
// these, those whose likeness has the greatest sum. What is left between two
// pairs is paired in order.
//
// The time is bounded by the product of the number of elements and a constant:
// elements are compared that are at most kMaxShift places apart, counted from
// the last pair of at most kMaxPiece elements before them.
constexpr size_t kMaxAnchored = size_t{1} << 16;
constexpr size_t kMaxShift = 32;
constexpr size_t kMaxPiece = 512;
std::vector<ElementPair> Align(const Sequences& sequences);

// The pairs of elements with the same index.
std::vector<ElementPair> AlignByIndex(size_t before_count, size_t after_count);

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_RECORD_ALIGNMENT_H_
