#include "tools/identify.h"

#include <algorithm>
#include <cmath>

namespace vantiro {
namespace inspection {
namespace {

// Sixteen roots, and one guess in thousands may be wrong.
constexpr double kConvincingBits = 16;

void AddTally(const Tally& tally, const std::string& what,
              std::string* reason) {
  if (tally.all == 0) return;
  *reason += ", " + std::to_string(tally.held) + " of " +
             std::to_string(tally.all) + " " + what;
}

std::string Reason(const Evidence& evidence, size_t size) {
  std::string reason =
      std::to_string(evidence.known_bytes) + " bytes in known fields";
  if (evidence.unknown_bytes > 0) {
    reason +=
        ", " + std::to_string(evidence.unknown_bytes) + " in unknown ones";
  }
  AddTally(evidence.enums, "enums declared", &reason);
  AddTally(evidence.floats, "floats plausible", &reason);
  AddTally(evidence.strings, "strings are text", &reason);
  if (evidence.end < size) {
    reason += ", unreadable from offset " + std::to_string(evidence.end);
  }
  return reason;
}

}  // namespace

std::vector<Candidate> Identify(const std::vector<const Descriptor*>& types,
                                std::string_view bytes) {
  Shapes shapes;
  std::vector<Candidate> candidates;
  for (const Descriptor* const type : types) {
    const Evidence evidence = Weigh(shapes.Of(*type), bytes);
    const int percent =
        bytes.empty()
            ? 0
            : static_cast<int>(100 * evidence.known_bytes / bytes.size());
    candidates.push_back(
        {type, evidence, percent, Reason(evidence, bytes.size())});
  }
  std::stable_sort(candidates.begin(), candidates.end(),
                   [](const Candidate& a, const Candidate& b) {
                     return !IsTie(a, b) && a.evidence.bits > b.evidence.bits;
                   });
  return candidates;
}

bool IsTie(const Candidate& a, const Candidate& b) {
  return std::abs(a.evidence.bits - b.evidence.bits) < 1e-6;
}

bool IsConvincing(const Candidate& best) {
  return best.evidence.bits >= kConvincingBits;
}

}  // namespace inspection
}  // namespace vantiro
