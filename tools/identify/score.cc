#include "tools/identify/score.h"

#include <algorithm>

#include "tools/identify/value_cost.h"
#include "tools/wire/wire_reader.h"

namespace vantiro {
namespace tools {
namespace {

using google::protobuf::internal::WireFormatLite;

// The cost in bits of a value that is not as predicted, in addition to its own.
constexpr double kMismatchBits = 8;
// The cost of a fault.
constexpr double kFaultBits = 24;
constexpr int kMaxDepth = 100;
// Strict scoring ends below this: later fields rarely make up for so much.
constexpr double kGiveUpBits = -24;
// What a string or a packed run can add to a strict score at most.
constexpr double kMaxContentBits = 12;

// Scores bytes in one pass. Strict scoring ends at the first byte that the
// library would not have written.
class Scorer {
 public:
  // `carrier` is as Carrier::Bits has it; without it a byte has eight bits.
  Scorer(std::string_view bytes, bool is_strict,
         const std::vector<double>* carrier)
      : reader_(bytes), is_strict_(is_strict), carrier_(carrier) {}

  size_t offset() const { return reader_.offset(); }

  Score Run(const MessageStructure& structure) {
    const bool is_complete = ReadFields(structure, 0, &score_.end);
    if (!is_strict_ && !is_complete) score_.bits -= kFaultBits;
    return score_;
  }

 private:
  // Reads up to the end of the message. If there is a fault, returns false, and
  // sets `*end` to the end of the fields that could be read.
  bool ReadFields(const MessageStructure& structure, int depth, size_t* end) {
    size_t rank = 0;
    while (!reader_.AtEnd()) {
      *end = reader_.offset();
      const double bits = score_.bits;
      if (!ReadField(structure, depth, &rank)) {
        if (is_strict_) score_.bits = bits;
        return false;
      }
      if (is_strict_ && score_.bits < kGiveUpBits) return false;
    }
    *end = reader_.offset();
    return true;
  }

  bool ReadField(const MessageStructure& structure, int depth, size_t* rank) {
    const size_t start = reader_.offset();
    Tag tag;
    if (!reader_.ReadTag(&tag) || tag.number() == 0) return false;
    const FieldStructure* const field =
        structure.Find(static_cast<uint32_t>(tag.number()));
    if (field == nullptr || field->wire_type != tag.wire_type()) {
      if (is_strict_ || !SkipUnknown(tag, depth)) return false;
      score_.unknown_bytes += reader_.offset() - start;
      AddMismatch();
      return true;
    }
    const size_t tag_size = reader_.offset() - start;
    if (!AddTag(structure, *field, tag, RawBits(start), rank)) return false;
    if (field->kind == Kind::kMessage) {
      score_.known_bytes += tag_size;
      return ReadMessage(*field->message, depth);
    }
    if (!ReadValue(*field)) return false;
    score_.known_bytes += reader_.offset() - start;
    return true;
  }

  bool ReadMessage(const MessageStructure& structure, int depth) {
    const size_t start = reader_.offset();
    size_t rest;
    bool is_cut_off;
    if (depth == kMaxDepth || !ReadLength(&rest, &is_cut_off)) return false;
    const size_t length_size = reader_.offset() - start;
    const double length_bits = RawBits(start);
    size_t end;
    if (ReadFields(structure, depth + 1, &end)) {
      // The end of the message costs as much as one more choice among all
      // fields.
      Add(length_bits, structure.choice_bits[structure.field_count]);
      score_.known_bytes += length_size;
    } else {
      if (is_strict_) return false;
      score_.bits -= kFaultBits;
      reader_.Skip(reader_.left());
    }
    reader_.Extend(rest);
    return true;
  }

  bool ReadValue(const FieldStructure& field) {
    if (field.wire_type == WireFormatLite::WIRETYPE_FIXED32) {
      return ReadFloat(field);
    }
    if (field.wire_type == WireFormatLite::WIRETYPE_VARINT) {
      return ReadVarint(field);
    }
    const size_t start = reader_.offset();
    size_t rest;
    bool is_cut_off;
    if (!ReadLength(&rest, &is_cut_off)) return false;
    const auto length_size = static_cast<double>(reader_.offset() - start);
    const double bits = score_.bits;
    Add(RawBits(start), 7 * length_size + 1);
    if (is_cut_off || !ReadContent(field)) return false;
    // Text and tables of numbers are in many files.
    if (is_strict_) score_.bits = std::min(score_.bits, bits + kMaxContentBits);
    reader_.Extend(rest);
    return true;
  }

  // Reads a length, and makes the bytes of the value the last ones. False if
  // the length is a fault, or none of the bytes are there.
  bool ReadLength(size_t* rest, bool* is_cut_off) {
    Varint length;
    if (!reader_.ReadVarint(&length) || !length.IsShortest()) return false;
    const size_t left = reader_.left();
    *is_cut_off = length.value > left;
    if (*is_cut_off && (is_strict_ || left == 0)) return false;
    *rest = reader_.Limit(*is_cut_off ? left : length.value);
    return true;
  }

  // Reads a string, bytes or a packed run.
  bool ReadContent(const FieldStructure& field) {
    const size_t size = reader_.left();
    if (!field.is_repeated && size == 0 && is_strict_) return false;
    switch (field.kind) {
      case Kind::kBytes:
        return reader_.Skip(size);
      case Kind::kString: {
        double cost = 0;
        const bool passes = GetStringCost(reader_.Peek(size), &cost);
        score_.strings.Add(passes);
        if (is_strict_) return passes && reader_.Skip(size);
        AddValue(8.0 * static_cast<double>(size), passes, cost);
        return reader_.Skip(size);
      }
      case Kind::kFloat:
        if (size % sizeof(float) != 0) return false;
        while (!reader_.AtEnd()) {
          if (!ReadFloat(field)) return false;
        }
        return true;
      default:
        while (!reader_.AtEnd()) {
          if (!ReadVarint(field)) return false;
        }
        return true;
    }
  }

  bool ReadFloat(const FieldStructure& field) {
    const size_t start = reader_.offset();
    uint32_t bits;
    if (!reader_.ReadFixed32(&bits)) return false;
    const bool is_canonical = field.is_repeated || bits << 1 != 0;
    double cost = 0;
    const bool passes = is_canonical && GetFloatCost(bits, &cost);
    score_.floats.Add(passes);
    AddValue(RawBits(start), passes, cost);
    return is_canonical || !is_strict_;
  }

  bool ReadVarint(const FieldStructure& field) {
    const size_t start = reader_.offset();
    Varint varint;
    if (!reader_.ReadVarint(&varint)) return false;
    const bool is_canonical = IsCanonical(field, varint);
    double cost = 0;
    const bool passes = is_canonical && GetVarintCost(field, varint, &cost);
    if (field.kind == Kind::kEnum) score_.enums.Add(passes);
    AddValue(RawBits(start), passes, cost);
    return is_canonical || !is_strict_;
  }

  bool SkipUnknown(const Tag& tag, int depth) {
    Varint varint;
    switch (tag.wire_type()) {
      case WireFormatLite::WIRETYPE_VARINT:
        return reader_.ReadVarint(&varint);
      case WireFormatLite::WIRETYPE_FIXED64:
        return reader_.Skip(8);
      case WireFormatLite::WIRETYPE_FIXED32:
        return reader_.Skip(4);
      case WireFormatLite::WIRETYPE_LENGTH_DELIMITED:
        return reader_.ReadVarint(&varint) && reader_.Skip(varint.value);
      case WireFormatLite::WIRETYPE_START_GROUP:
        return SkipGroup(tag.number(), depth);
      default:
        return false;
    }
  }

  bool SkipGroup(int number, int depth) {
    if (depth == kMaxDepth) return false;
    Tag tag;
    while (reader_.ReadTag(&tag) && tag.number() != 0) {
      if (tag.wire_type() == WireFormatLite::WIRETYPE_END_GROUP) {
        return tag.number() == number;
      }
      if (!SkipUnknown(tag, depth + 1)) return false;
    }
    return false;
  }

  // Scores a tag. False if that ends the scoring.
  bool AddTag(const MessageStructure& structure, const FieldStructure& field,
              const Tag& tag, double raw_bits, size_t* rank) {
    if (field.rank < *rank || !tag.is_shortest) {
      AddMismatch();
      return !is_strict_;
    }
    Add(raw_bits, structure.choice_bits[structure.field_count - *rank]);
    // Elements of a repeated message have a tag each.
    *rank = field.rank +
            (field.kind == Kind::kMessage && field.is_repeated ? 0 : 1);
    return true;
  }

  // Scores a value, for which `cost` is meant if it is as predicted.
  void AddValue(double raw_bits, bool passes, double cost) {
    score_.bits += passes ? raw_bits - cost : -kMismatchBits;
  }
  // Scores a part of `raw_bits` that is encoded in `cost` bits.
  void Add(double raw_bits, double cost) { score_.bits += raw_bits - cost; }
  void AddMismatch() { score_.bits -= kMismatchBits; }

  // What the bytes from `begin` to the position cost in the carrier.
  double RawBits(size_t begin) const {
    const size_t end = reader_.offset();
    return carrier_ == nullptr ? 8.0 * static_cast<double>(end - begin)
                               : (*carrier_)[end] - (*carrier_)[begin];
  }

  WireReader reader_;
  const bool is_strict_;
  const std::vector<double>* const carrier_;
  Score score_;
};

}  // namespace

Score ScoreRecord(const MessageStructure& structure, std::string_view bytes) {
  return Scorer(bytes, /*is_strict=*/false, nullptr).Run(structure);
}

PrefixScore ScorePrefix(const MessageStructure& structure,
                        std::string_view bytes,
                        const std::vector<double>* carrier) {
  Scorer scorer(bytes, /*is_strict=*/true, carrier);
  const Score score = scorer.Run(structure);
  return {score.bits, score.end, scorer.offset()};
}

}  // namespace tools
}  // namespace vantiro
