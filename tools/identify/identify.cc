#include "tools/identify/identify.h"

#include <algorithm>
#include <cmath>

namespace vantiro {
namespace tools {
namespace {

// With sixteen roots, random bytes reach this in one case of 2^12.
constexpr double kConvincingBits = 16;

void AddCount(const CheckCount& count, const std::string& what,
              std::string* reason) {
  if (count.total == 0) return;
  *reason += ", " + std::to_string(count.passed) + " of " +
             std::to_string(count.total) + " " + what;
}

std::string Reason(const Score& score, size_t size) {
  std::string reason =
      std::to_string(score.known_bytes) + " bytes in known fields";
  if (score.unknown_bytes > 0) {
    reason += ", " + std::to_string(score.unknown_bytes) + " in unknown fields";
  }
  AddCount(score.enums, "enums declared", &reason);
  AddCount(score.floats, "floats plausible", &reason);
  AddCount(score.strings, "strings printable", &reason);
  if (score.end < size) {
    reason += ", not readable from offset " + std::to_string(score.end);
  }
  return reason;
}

}  // namespace

std::vector<Candidate> Identify(const std::vector<const Descriptor*>& types,
                                std::string_view bytes) {
  // Making these takes longer than scoring a record.
  thread_local StructureCache structures;
  std::vector<Candidate> candidates;
  for (const Descriptor* const type : types) {
    const Score score = ScoreRecord(structures.Get(*type), bytes);
    const int percent =
        bytes.empty()
            ? 0
            : static_cast<int>(100 * score.known_bytes / bytes.size());
    candidates.push_back({type, score, percent, Reason(score, bytes.size())});
  }
  std::stable_sort(candidates.begin(), candidates.end(),
                   [](const Candidate& a, const Candidate& b) {
                     return !IsTie(a, b) && a.score.bits > b.score.bits;
                   });
  return candidates;
}

bool IsTie(const Candidate& a, const Candidate& b) {
  return std::abs(a.score.bits - b.score.bits) < 1e-6;
}

bool IsConvincing(const Candidate& best) {
  return best.score.bits >= kConvincingBits;
}

}  // namespace tools
}  // namespace vantiro
