#include "tools/identify/scan.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>

#include "tools/identify/carrier.h"

namespace vantiro {
namespace tools {
namespace {

constexpr size_t kProgressStep = size_t{1} << 20;
// Far above the size of a record, which is some kilobytes.
constexpr size_t kMaxRecordSize = size_t{1} << 20;
constexpr size_t kShortRecordSize = 64;
constexpr uint64_t kMaxReadsOfAByte = 64;
// What the model of the carrier takes longer than reading a record.
constexpr uint64_t kReadsByCarrier = 4;
// How many bytes before a record are taken for its first fields, at most.
constexpr size_t kMaxPrefixSize = 64;
// What the first fields of a record cost at most.
constexpr double kFirstFieldsBits = 8;

// Whether `other`, which begins inside `match`, is the record. If both end at
// the same byte it has fewer of the same fields, and the first ones may add
// little.
bool IsBetter(const Match& other, const Match& match) {
  const bool has_fewer_fields =
      other.type == match.type &&
      other.offset + other.size == match.offset + match.size;
  return other.bits > match.bits + (has_fewer_fields ? kFirstFieldsBits : 0);
}

class Scanner {
 public:
  Scanner(const std::vector<const Descriptor*>& types, std::string_view bytes,
          double min_bits)
      : bytes_(bytes), min_bits_(min_bits), carrier_(bytes) {
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
  std::optional<Match> At(size_t offset) {
    std::optional<Match> best;
    // Many bytes are read several times, since a record can begin anywhere. In
    // a file that is made for it each could be read as often as there are
    // bytes, so that only short records are looked for after some time.
    const bool is_late =
        read_ > kMaxRecordSize * 16 + offset * kMaxReadsOfAByte;
    const std::string_view rest =
        bytes_.substr(offset, is_late ? kShortRecordSize : kMaxRecordSize);
    for (const auto& [type, structure] :
         candidates_[static_cast<uint8_t>(rest.front())]) {
      PrefixScore score = ScorePrefix(*structure, rest, nullptr);
      read_ += score.read_size;
      if (score.size == 0 || score.bits < min_bits_) continue;
      const std::vector<double> carrier = carrier_.Bits({offset, score.size});
      read_ += score.size * kReadsByCarrier;
      score = ScorePrefix(*structure, rest.substr(0, score.size), &carrier);
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
  Carrier carrier_;
  // How many bytes have been read so far, again and again.
  uint64_t read_ = 0;
  StructureCache structures_;
  // By first byte: the types whose records can begin with it.
  std::array<std::vector<Candidate>, 256> candidates_;
};

}  // namespace

std::vector<Match> Scan(const std::vector<const Descriptor*>& types,
                        std::string_view bytes, double min_bits,
                        const std::function<void(size_t)>& progress) {
  Scanner scanner(types, bytes, min_bits);
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
      if (other.has_value() && IsBetter(*other, *match)) match = other;
    }
    matches.push_back(*match);
    offset = match->offset + match->size - 1;
  }
  return matches;
}

}  // namespace tools
}  // namespace vantiro
