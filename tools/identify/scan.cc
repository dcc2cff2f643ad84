#include "tools/identify/scan.h"

#include <algorithm>
#include <array>
#include <optional>

namespace vantiro {
namespace tools {
namespace {

constexpr size_t kProgressStep = size_t{1} << 20;
// Far above the size of a record, which is some kilobytes.
constexpr size_t kMaxRecordSize = size_t{1} << 20;
// How many bytes before a record are taken for its first fields, at most.
constexpr size_t kMaxPrefixSize = 64;

class Scanner {
 public:
  Scanner(const std::vector<const Descriptor*>& types, std::string_view bytes,
          double min_bits)
      : bytes_(bytes), min_bits_(min_bits) {
    for (const Descriptor* const type : types) {
      const MessageStructure& structure = structures_.Get(*type);
      for (int byte = 0; byte < 256; ++byte) {
        if (CanBegin(structure, static_cast<uint8_t>(byte))) {
          candidates_[static_cast<size_t>(byte)].push_back({type, &structure});
        }
      }
    }
  }

  // The record of the highest score at the offset, if any scores enough.
  std::optional<Match> At(size_t offset) const {
    std::optional<Match> best;
    const std::string_view rest = bytes_.substr(offset, kMaxRecordSize);
    for (const auto& [type, structure] :
         candidates_[static_cast<uint8_t>(rest.front())]) {
      const PrefixScore score = ScorePrefix(*structure, rest);
      if (score.bits < min_bits_) continue;
      if (best.has_value() && score.bits <= best->bits) continue;
      best = Match{offset, score.size, type, score.bits};
    }
    return best;
  }

 private:
  struct Candidate {
    const Descriptor* type;
    const MessageStructure* structure;
  };

  const std::string_view bytes_;
  const double min_bits_;
  StructureCache structures_;
  // By first byte: the types whose records can begin with it.
  std::array<std::vector<Candidate>, 256> candidates_;
};

}  // namespace

std::vector<Match> Scan(const std::vector<const Descriptor*>& types,
                        std::string_view bytes, double min_bits,
                        const std::function<void(size_t)>& progress) {
  const Scanner scanner(types, bytes, min_bits);
  std::vector<Match> matches;
  for (size_t offset = 0; offset < bytes.size(); ++offset) {
    if (progress && offset % kProgressStep == 0) progress(offset);
    std::optional<Match> match = scanner.At(offset);
    if (!match.has_value()) continue;
    // The bytes before a record may look like fields of another type, so a
    // match that begins a little later and scores more replaces this one.
    const size_t end = offset + std::min(match->size, kMaxPrefixSize);
    for (size_t inner = offset + 1; inner < end; ++inner) {
      const std::optional<Match> other = scanner.At(inner);
      if (other.has_value() && other->bits > match->bits) match = other;
    }
    matches.push_back(*match);
    offset = match->offset + match->size - 1;
  }
  return matches;
}

}  // namespace tools
}  // namespace vantiro
