#include "tools/record/alignment.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace vantiro {
namespace tools {
namespace {

// A part of both sequences.
struct Range {
  size_t before;
  size_t before_end;
  size_t after;
  size_t after_end;

  size_t before_count() const { return before_end - before; }
  size_t after_count() const { return after_end - after; }
  bool IsOneSided() const { return before_count() == 0 || after_count() == 0; }
};

struct Match {
  size_t before;
  size_t after;
};

// The best matches in a piece of both sequences.
class Piece {
 public:
  Piece(const Sequences& sequences, const Range& range)
      : sequences_(sequences),
        range_(range),
        rows_(std::min(range.before_count(), range.after_count() + kMaxShift)),
        columns_(
            std::min(range.after_count(), range.before_count() + kMaxShift)),
        steps_((rows_ + 1) * kWidth, kNone) {}

  // In ascending order.
  std::vector<Match> Matches() {
    FillSteps();
    std::vector<Match> matches;
    size_t row = rows_;
    size_t column = columns_;
    while (row > 0 && column > 0) {
      const Step step = steps_[At(row, column)];
      if (step == kMatch) {
        matches.push_back({range_.before + --row, range_.after + --column});
      } else if (step == kSkipBefore) {
        --row;
      } else {
        --column;
      }
    }
    std::reverse(matches.begin(), matches.end());
    return matches;
  }

 private:
  enum Step : uint8_t { kNone, kSkipBefore, kSkipAfter, kMatch };
  static constexpr size_t kWidth = 2 * kMaxShift + 1;

  bool IsNear(size_t row, size_t column) const {
    return column + kMaxShift >= row && column <= row + kMaxShift;
  }
  size_t At(size_t row, size_t column) const {
    return row * kWidth + (column + kMaxShift - row);
  }

  // The greatest sum of the likeness of matches among the first `row` and
  // `column` elements, and the last step to it.
  void FillSteps() {
    std::vector<double> above(columns_ + 1, 0);
    std::vector<double> sums(columns_ + 1, 0);
    for (size_t row = 1; row <= rows_; ++row) {
      const size_t first = row > kMaxShift ? row - kMaxShift : 0;
      const size_t last = std::min(columns_, row + kMaxShift);
      for (size_t column = first; column <= last; ++column) {
        sums[column] = FillStep(row, column, above, sums);
      }
      std::swap(above, sums);
    }
  }

  double FillStep(size_t row, size_t column, const std::vector<double>& above,
                  const std::vector<double>& sums) {
    Step step = kNone;
    double best = 0;
    const auto consider = [&](Step candidate, double sum) {
      if (step != kNone && sum <= best) return;
      step = candidate;
      best = sum;
    };
    if (column > 0) {
      const double likeness = sequences_.likeness(range_.before + row - 1,
                                                  range_.after + column - 1);
      if (likeness >= kMinLikeness) {
        consider(kMatch, above[column - 1] + likeness);
      }
      if (IsNear(row, column - 1)) consider(kSkipAfter, sums[column - 1]);
    }
    if (IsNear(row - 1, column)) consider(kSkipBefore, above[column]);
    steps_[At(row, column)] = step;
    return best;
  }

  const Sequences& sequences_;
  const Range range_;
  // Elements beyond these have no match.
  const size_t rows_;
  const size_t columns_;
  // Of the elements that are near each other.
  std::vector<Step> steps_;
};

class Aligner {
 public:
  explicit Aligner(const Sequences& sequences) : sequences_(sequences) {}

  std::vector<ElementPair> Align() {
    Range all = {0, sequences_.before_count, 0, sequences_.after_count};
    const size_t equal_at_end = TrimEqual(&all);
    for (const Match& anchor : Anchors(all)) {
      AlignBetween({all.before, anchor.before, all.after, anchor.after});
      AddPair(anchor.before, anchor.after);
      all.before = anchor.before + 1;
      all.after = anchor.after + 1;
    }
    AlignBetween(all);
    AddEqual(all, equal_at_end);
    return std::move(pairs_);
  }

 private:
  bool AreEqual(size_t before, size_t after) const {
    return sequences_.likeness(before, after) >= 1;
  }

  void AddPair(size_t before, size_t after) {
    pairs_.push_back({before, after});
  }

  // Pairs what is equal at the begin, and removes that and what is equal at the
  // end from the range. Returns how many are equal at the end.
  size_t TrimEqual(Range* range) {
    while (!range->IsOneSided() && AreEqual(range->before, range->after)) {
      AddPair(range->before++, range->after++);
    }
    size_t count = 0;
    while (!range->IsOneSided() &&
           AreEqual(range->before_end - 1, range->after_end - 1)) {
      --range->before_end;
      --range->after_end;
      ++count;
    }
    return count;
  }

  // The elements behind the range that are equal.
  void AddEqual(const Range& range, size_t count) {
    for (size_t i = 0; i < count; ++i) {
      AddPair(range.before_end + i, range.after_end + i);
    }
  }

  // Elements whose keys occur once in each sequence, in ascending order of
  // both.
  std::vector<Match> Anchors(const Range& range) const {
    if (range.IsOneSided() ||
        range.before_count() + range.after_count() > kMaxAnchored) {
      return {};
    }
    struct Keyed {
      uint64_t key;
      bool is_after;
      size_t index;
    };
    std::vector<Keyed> keyed;
    for (size_t i = range.before; i < range.before_end; ++i) {
      keyed.push_back({sequences_.before_key(i), false, i});
    }
    for (size_t i = range.after; i < range.after_end; ++i) {
      keyed.push_back({sequences_.after_key(i), true, i});
    }
    std::stable_sort(
        keyed.begin(), keyed.end(),
        [](const Keyed& a, const Keyed& b) { return a.key < b.key; });
    std::vector<Match> unique;
    for (size_t i = 0; i < keyed.size();) {
      size_t end = i;
      while (end < keyed.size() && keyed[end].key == keyed[i].key) ++end;
      if (end - i == 2 && !keyed[i].is_after && keyed[i + 1].is_after) {
        unique.push_back({keyed[i].index, keyed[i + 1].index});
      }
      i = end;
    }
    std::sort(unique.begin(), unique.end(), [](const Match& a, const Match& b) {
      return a.before < b.before;
    });
    return LongestAscending(unique);
  }

  // The longest part of `matches`, which ascend in `before`, that ascends in
  // `after` too.
  static std::vector<Match> LongestAscending(
      const std::vector<Match>& matches) {
    // Of each length: the index of the match with the lowest `after` that ends
    // a part of that length; and of each match the one before it.
    std::vector<size_t> ends;
    std::vector<size_t> previous(matches.size());
    for (size_t i = 0; i < matches.size(); ++i) {
      const auto end = std::lower_bound(
          ends.begin(), ends.end(), matches[i].after,
          [&](size_t a, size_t after) { return matches[a].after < after; });
      if (end != ends.begin()) previous[i] = *std::prev(end);
      if (end == ends.end()) {
        ends.push_back(i);
      } else {
        *end = i;
      }
    }
    std::vector<Match> longest(ends.size());
    for (size_t i = ends.size(), at = ends.empty() ? 0 : ends.back(); i > 0;) {
      longest[--i] = matches[at];
      at = previous[at];
    }
    return longest;
  }

  void AlignBetween(Range range) {
    const size_t equal_at_end = TrimEqual(&range);
    const Range trimmed = range;
    while (!range.IsOneSided()) AlignPiece(&range);
    PairInOrder(range);
    AddEqual(trimmed, equal_at_end);
  }

  // Pairs some elements at the begin of the range, and removes them from it.
  void AlignPiece(Range* range) {
    Range piece = *range;
    const bool is_last =
        piece.before_count() <= kMaxPiece && piece.after_count() <= kMaxPiece;
    piece.before_end = std::min(piece.before_end, piece.before + kMaxPiece);
    piece.after_end = std::min(piece.after_end, piece.after + kMaxPiece);
    std::vector<Match> matches = Piece(sequences_, piece).Matches();
    // What is near the end of a piece can have a better match behind it.
    if (!is_last) KeepFirst(piece, &matches);
    for (const Match& match : matches) {
      PairInOrder({piece.before, match.before, piece.after, match.after});
      AddPair(match.before, match.after);
      piece.before = match.before + 1;
      piece.after = match.after + 1;
    }
    if (is_last || matches.empty()) {
      PairInOrder(piece);
      piece.before = piece.before_end;
      piece.after = piece.after_end;
    }
    range->before = piece.before;
    range->after = piece.after;
  }

  // Keeps the matches in the first three quarters; none if these are all in the
  // first quarter, since each piece has to make enough progress.
  static void KeepFirst(const Range& piece, std::vector<Match>* matches) {
    const size_t quarter = kMaxPiece / 4;
    const auto end =
        std::find_if(matches->begin(), matches->end(), [&](const Match& match) {
          return std::max(match.before - piece.before,
                          match.after - piece.after) >= 3 * quarter;
        });
    if (end == matches->begin()) return;
    if (std::prev(end)->before - piece.before < quarter) {
      matches->clear();
      return;
    }
    matches->erase(end, matches->end());
  }

  void PairInOrder(const Range& range) {
    const size_t common = std::min(range.before_count(), range.after_count());
    for (size_t i = 0; i < common; ++i) {
      AddPair(range.before + i, range.after + i);
    }
    for (size_t i = range.before + common; i < range.before_end; ++i) {
      pairs_.push_back({i, std::nullopt});
    }
    for (size_t i = range.after + common; i < range.after_end; ++i) {
      pairs_.push_back({std::nullopt, i});
    }
  }

  const Sequences& sequences_;
  std::vector<ElementPair> pairs_;
};

}  // namespace

std::vector<ElementPair> Align(const Sequences& sequences) {
  return Aligner(sequences).Align();
}

std::vector<ElementPair> AlignByIndex(size_t before_count, size_t after_count) {
  std::vector<ElementPair> pairs(std::max(before_count, after_count));
  for (size_t i = 0; i < pairs.size(); ++i) {
    if (i < before_count) pairs[i].before = i;
    if (i < after_count) pairs[i].after = i;
  }
  return pairs;
}

}  // namespace tools
}  // namespace vantiro
