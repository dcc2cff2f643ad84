#include "tools/identify/score.h"

#include <google/protobuf/io/coded_stream.h>
#include <google/protobuf/wire_format_lite.h>

#include <algorithm>
#include <cmath>
#include <cstring>

namespace vantiro {
namespace tools {
namespace {

using google::protobuf::internal::WireFormatLite;

// The cost in bits of a value that is not as predicted, in addition to its own.
constexpr double kMismatchBits = 8;
// The cost of a fault.
constexpr double kFaultBits = 24;
// The cost of a printable character: some ninety, of different frequency.
constexpr double kCharacterBits = 6.5;
// The cost of the size of a varint, by its size: short ones are more likely.
constexpr double kSizeBits[] = {0, 0.7, 2, 3, 4, 4, 7, 7, 7, 7, 4};
constexpr int kMaxDepth = 100;
// Strict scoring ends below this: later fields rarely make up for so much.
constexpr double kGiveUpBits = -64;

double Log2(size_t count) { return std::log2(static_cast<double>(count)); }

struct Varint {
  uint64_t value;
  int size;  // 0 if it cannot be read.
};

Varint ReadVarint(const uint8_t* p, const uint8_t* end) {
  uint64_t value = 0;
  for (int i = 0; i < 10 && p + i < end; ++i) {
    value |= static_cast<uint64_t>(p[i] & 0x7f) << (7 * i);
    // A tenth byte passes one bit; a value above that does not fit 64 bits.
    if (p[i] < 0x80) return {i == 9 && p[i] > 1 ? 0 : value, i + 1};
  }
  return {0, 0};
}

bool IsShortest(const Varint& varint) {
  return varint.size ==
         static_cast<int>(google::protobuf::io::CodedOutputStream::VarintSize64(
             varint.value));
}

// The size of the UTF-8 character at `p`; 0 if it is not valid or not
// printable.
int CharacterSize(const uint8_t* p, const uint8_t* end) {
  if (*p < 0x80) return (*p >= 0x20 && *p != 0x7f) || *p == '\n' || *p == '\t';
  const int size = *p >= 0xf0 ? 4 : *p >= 0xe0 ? 3 : *p >= 0xc2 ? 2 : 0;
  if (size == 0 || *p > 0xf4 || end - p < size) return 0;
  for (int i = 1; i < size; ++i) {
    if ((p[i] & 0xc0) != 0x80) return 0;
  }
  return size;
}

bool IsPrintable(const uint8_t* p, const uint8_t* end) {
  while (p < end) {
    const int size = CharacterSize(p, end);
    if (size == 0) return false;
    p += size;
  }
  return true;
}

// Scores bytes in one pass. Strict scoring ends at the first byte that the
// library would not have written.
class Scorer {
 public:
  explicit Scorer(bool is_strict) : is_strict_(is_strict) {}

  const Score& score() const { return score_; }

  // Reads the fields of a message. Returns where reading ended: `end` if all
  // could be read.
  const uint8_t* ReadFields(const MessageStructure& structure, const uint8_t* p,
                            const uint8_t* end, int depth) {
    size_t rank = 0;
    while (p < end) {
      const Score before = score_;
      const uint8_t* const next = ReadField(structure, p, end, depth, &rank);
      if (next == nullptr) {
        if (is_strict_) score_ = before;
        return p;
      }
      if (is_strict_ && score_.bits < kGiveUpBits) return p;
      p = next;
    }
    return p;
  }

  void AddFault() { score_.bits -= kFaultBits; }

 private:
  // Scores a value of `raw_bits` that is encoded in `cost` bits.
  void Add(double raw_bits, double cost) { score_.bits += raw_bits - cost; }

  // Scores a value that is not as predicted. False if that ends the scoring.
  bool AddMismatch() {
    score_.bits -= kMismatchBits;
    return !is_strict_;
  }

  const uint8_t* ReadField(const MessageStructure& structure, const uint8_t* p,
                           const uint8_t* end, int depth, size_t* rank) {
    const Varint tag = ReadVarint(p, end);
    if (tag.size == 0 || tag.value >> 3 == 0 || tag.value > UINT32_MAX) {
      return nullptr;
    }
    const uint8_t* const value = p + tag.size;
    const FieldStructure* const field = structure.Find(tag.value >> 3);
    const auto wire_type = static_cast<WireType>(tag.value & 7);
    if (field == nullptr || field->wire_type != wire_type) {
      if (is_strict_) return nullptr;
      const uint8_t* const next = SkipUnknown(value, end, tag.value, depth);
      if (next != nullptr) {
        score_.unknown_bytes += static_cast<size_t>(next - p);
        AddMismatch();
      }
      return next;
    }
    if (!AddTag(structure, *field, tag.size, rank)) return nullptr;
    const uint8_t* const next = ReadValue(*field, value, end, depth);
    if (next != nullptr && field->kind != Kind::kMessage) {
      score_.known_bytes += static_cast<size_t>(next - p);
    } else if (next != nullptr) {
      score_.known_bytes += static_cast<size_t>(tag.size);
    }
    return next;
  }

  bool AddTag(const MessageStructure& structure, const FieldStructure& field,
              int size, size_t* rank) {
    const double raw_bits = 8.0 * size;
    if (field.rank < *rank) return AddMismatch();
    Add(raw_bits, structure.choice_bits[structure.field_count - *rank]);
    *rank = field.rank +
            (field.kind == Kind::kMessage && field.is_repeated ? 0 : 1);
    return true;
  }

  const uint8_t* ReadValue(const FieldStructure& field, const uint8_t* p,
                           const uint8_t* end, int depth) {
    if (field.wire_type == WireFormatLite::WIRETYPE_FIXED32) {
      return end - p < 4 ? nullptr : ReadFloat(p, !field.is_repeated);
    }
    if (field.wire_type == WireFormatLite::WIRETYPE_VARINT) {
      return ReadNumber(field, p, end);
    }
    const Varint length = ReadVarint(p, end);
    if (length.size == 0 || !IsShortest(length)) return nullptr;
    p += length.size;
    const auto left = static_cast<uint64_t>(end - p);
    const bool is_cut = length.value > left;
    if (is_cut && (is_strict_ || left == 0)) return nullptr;
    const uint8_t* const value_end = p + std::min(length.value, left);
    if (field.kind == Kind::kMessage) {
      return ReadMessage(*field.message, length.size, p, value_end, depth);
    }
    Add(8.0 * length.size, 7.0 * length.size + 1);
    return is_cut ? nullptr : ReadPackedOrString(field, p, value_end);
  }

  const uint8_t* ReadMessage(const MessageStructure& structure, int length_size,
                             const uint8_t* p, const uint8_t* end, int depth) {
    if (depth == kMaxDepth) return nullptr;
    const uint8_t* const stop = ReadFields(structure, p, end, depth + 1);
    if (stop != end) {
      if (is_strict_) return nullptr;
      AddFault();
      return end;
    }
    // The end of the message costs as much as one more choice among all fields.
    Add(8.0 * length_size, structure.choice_bits[structure.field_count]);
    score_.known_bytes += static_cast<size_t>(length_size);
    return end;
  }

  const uint8_t* ReadPackedOrString(const FieldStructure& field,
                                    const uint8_t* p, const uint8_t* end) {
    const double raw_bits = 8.0 * static_cast<double>(end - p);
    if (!field.is_repeated && p == end && is_strict_) return nullptr;
    switch (field.kind) {
      case Kind::kBytes:
        return end;
      case Kind::kString: {
        const bool passes = IsPrintable(p, end);
        score_.strings.Add(passes);
        if (!passes) return AddMismatch() ? end : nullptr;
        Add(raw_bits, kCharacterBits * static_cast<double>(end - p));
        return end;
      }
      case Kind::kFloat:
        if ((end - p) % 4 != 0) return nullptr;
        while (p != nullptr && p < end) p = ReadFloat(p, false);
        return p;
      default:
        while (p != nullptr && p < end) p = ReadNumber(field, p, end);
        return p;
    }
  }

  // A float costs its sign, its exponent within the usual range, and its
  // mantissa, which is short in the round numbers that people choose.
  const uint8_t* ReadFloat(const uint8_t* p, bool is_singular) {
    uint32_t bits;
    std::memcpy(&bits, p, sizeof(bits));
    const bool is_zero = bits << 1 == 0;
    if (is_zero && is_singular) return AddMismatch() ? p + 4 : nullptr;
    const unsigned exponent = bits >> 23 & 0xff;
    constexpr unsigned kMinExponent = 107;  // about 1e-6
    constexpr unsigned kMaxExponent = 157;  // about 1e9
    const bool passes =
        is_zero || (exponent >= kMinExponent && exponent <= kMaxExponent);
    score_.floats.Add(passes);
    if (!passes) {
      AddMismatch();
      return p + 4;
    }
    const bool is_round = (bits & 0xffff) == 0;
    Add(32, 1 + 5.7 + 1 + (is_round ? 7 : 23));
    return p + 4;
  }

  const uint8_t* ReadNumber(const FieldStructure& field, const uint8_t* p,
                            const uint8_t* end) {
    const Varint varint = ReadVarint(p, end);
    if (varint.size == 0) return nullptr;
    p += varint.size;
    const double raw_bits = 8.0 * varint.size;
    const bool is_canonical = IsShortest(varint) && FitsKind(field, varint) &&
                              (field.is_repeated || varint.value != 0);
    if (field.kind == Kind::kEnum) {
      const auto& numbers = field.enum_numbers;
      const bool passes =
          is_canonical &&
          std::find(numbers.begin(), numbers.end(),
                    static_cast<int>(varint.value)) != numbers.end();
      score_.enums.Add(passes);
      if (passes) {
        Add(raw_bits, Log2(numbers.size() + 1));
      } else {
        AddMismatch();
      }
      return is_canonical || !is_strict_ ? p : nullptr;
    }
    if (!is_canonical) return AddMismatch() ? p : nullptr;
    if (field.kind == Kind::kBool) {
      Add(raw_bits, field.is_repeated ? 1 : 0);
    } else {
      // A negative int32 has ten bytes, but 32 bits of information.
      const bool is_negative32 =
          varint.size == 10 && field.kind == Kind::kSigned32;
      const double payload = is_negative32 ? 32 : 7.0 * varint.size;
      Add(raw_bits, std::min(raw_bits, payload + kSizeBits[varint.size]));
    }
    return p;
  }

  // Whether the library writes this varint for a field of that kind.
  static bool FitsKind(const FieldStructure& field, const Varint& varint) {
    switch (field.kind) {
      case Kind::kBool:
        return varint.value <= 1;
      case Kind::kUnsigned32:
      case Kind::kZigZag32:
        return varint.value <= UINT32_MAX;
      case Kind::kSigned32:
      case Kind::kEnum:
        return varint.value <= INT32_MAX || varint.value >= 0xffffffff80000000;
      default:
        return true;
    }
  }

  // Returns the end of an unknown field, or null.
  const uint8_t* SkipUnknown(const uint8_t* p, const uint8_t* end, uint64_t tag,
                             int depth) {
    const auto left = static_cast<uint64_t>(end - p);
    const Varint varint = ReadVarint(p, end);
    switch (tag & 7) {
      case WireFormatLite::WIRETYPE_VARINT:
        return varint.size == 0 ? nullptr : p + varint.size;
      case WireFormatLite::WIRETYPE_FIXED64:
        return left < 8 ? nullptr : p + 8;
      case WireFormatLite::WIRETYPE_FIXED32:
        return left < 4 ? nullptr : p + 4;
      case WireFormatLite::WIRETYPE_LENGTH_DELIMITED:
        if (varint.size == 0 ||
            varint.value > left - static_cast<uint64_t>(varint.size)) {
          return nullptr;
        }
        return p + varint.size + varint.value;
      case WireFormatLite::WIRETYPE_START_GROUP:
        return SkipGroup(p, end, tag, depth);
      default:
        return nullptr;
    }
  }

  const uint8_t* SkipGroup(const uint8_t* p, const uint8_t* end, uint64_t tag,
                           int depth) {
    if (depth == kMaxDepth) return nullptr;
    while (true) {
      const Varint inner = ReadVarint(p, end);
      if (inner.size == 0 || inner.value >> 3 == 0) return nullptr;
      p += inner.size;
      if ((inner.value & 7) == WireFormatLite::WIRETYPE_END_GROUP) {
        return inner.value >> 3 == tag >> 3 ? p : nullptr;
      }
      p = SkipUnknown(p, end, inner.value, depth + 1);
      if (p == nullptr) return nullptr;
    }
  }

  const bool is_strict_;
  Score score_;
};

Score ScoreBytes(bool is_strict, const MessageStructure& structure,
                 std::string_view bytes) {
  const auto* const begin = reinterpret_cast<const uint8_t*>(bytes.data());
  const uint8_t* const end = begin + bytes.size();
  Scorer weigher(is_strict);
  const uint8_t* const stop = weigher.ReadFields(structure, begin, end, 0);
  if (!is_strict && stop != end) weigher.AddFault();
  Score score = weigher.score();
  score.end = static_cast<size_t>(stop - begin);
  return score;
}

}  // namespace

Score ScoreRecord(const MessageStructure& structure, std::string_view bytes) {
  return ScoreBytes(false, structure, bytes);
}

Score ScorePrefix(const MessageStructure& structure, std::string_view bytes) {
  return ScoreBytes(true, structure, bytes);
}

}  // namespace tools
}  // namespace vantiro
