#include "tools/evidence.h"

#include <google/protobuf/io/coded_stream.h>
#include <google/protobuf/wire_format_lite.h>

#include <algorithm>
#include <cmath>
#include <cstring>

namespace vantiro {
namespace inspection {
namespace {

using google::protobuf::internal::WireFormatLite;

// Of what does not hold, beside its own bits.
constexpr double kSurprise = 8;
constexpr double kFault = 24;
// A byte of text: some ninety characters, not all alike.
constexpr double kTextByte = 6.5;
// Sizes of varints: the shorter, the likelier.
constexpr double kSizeBits[] = {0, 0.7, 2, 3, 4, 4, 7, 7, 7, 7, 4};
constexpr int kMaxDepth = 100;
// A strict look gives up here: it would take long to make up for so much.
constexpr double kHopeless = -64;

double Log2(size_t count) { return std::log2(static_cast<double>(count)); }

struct Varint {
  uint64_t value;
  int size;  // 0 if it can't be read.
};

Varint ReadVarint(const uint8_t* p, const uint8_t* end) {
  uint64_t value = 0;
  for (int i = 0; i < 10 && p + i < end; ++i) {
    value |= static_cast<uint64_t>(p[i] & 0x7f) << (7 * i);
    // Of a tenth byte only the lowest bit counts; more than that is overlong.
    if (p[i] < 0x80) return {i == 9 && p[i] > 1 ? 0 : value, i + 1};
  }
  return {0, 0};
}

bool IsShortest(const Varint& varint) {
  return varint.size ==
         static_cast<int>(google::protobuf::io::CodedOutputStream::VarintSize64(
             varint.value));
}

// The size of a character of UTF-8 that is no control character, or 0.
int CharacterSize(const uint8_t* p, const uint8_t* end) {
  if (*p < 0x80) return (*p >= 0x20 && *p != 0x7f) || *p == '\n' || *p == '\t';
  const int size = *p >= 0xf0 ? 4 : *p >= 0xe0 ? 3 : *p >= 0xc2 ? 2 : 0;
  if (size == 0 || *p > 0xf4 || end - p < size) return 0;
  for (int i = 1; i < size; ++i) {
    if ((p[i] & 0xc0) != 0x80) return 0;
  }
  return size;
}

bool IsText(const uint8_t* p, const uint8_t* end) {
  while (p < end) {
    const int size = CharacterSize(p, end);
    if (size == 0) return false;
    p += size;
  }
  return true;
}

// One pass over bytes. When strict, it ends at the first thing that the library
// would not have written so.
class Weigher {
 public:
  explicit Weigher(bool is_strict) : is_strict_(is_strict) {}

  const Evidence& evidence() const { return evidence_; }

  // Reads the fields of a message. Gives where it had to stop: `end` if all
  // was read.
  const uint8_t* ReadFields(const Shape& shape, const uint8_t* p,
                            const uint8_t* end, int depth) {
    size_t rank = 0;
    while (p < end) {
      const Evidence before = evidence_;
      const uint8_t* const next = ReadField(shape, p, end, depth, &rank);
      if (next == nullptr) {
        if (is_strict_) evidence_ = before;
        return p;
      }
      if (is_strict_ && evidence_.bits < kHopeless) return p;
      p = next;
    }
    return p;
  }

  void AddFault() { evidence_.bits -= kFault; }

 private:
  void Save(double raw_bits, double cost) { evidence_.bits += raw_bits - cost; }

  // What does not hold: an end when strict.
  bool Surprise(double raw_bits) {
    Save(raw_bits, raw_bits + kSurprise);
    return !is_strict_;
  }

  const uint8_t* ReadField(const Shape& shape, const uint8_t* p,
                           const uint8_t* end, int depth, size_t* rank) {
    const Varint tag = ReadVarint(p, end);
    if (tag.size == 0 || tag.value >> 3 == 0 || tag.value > UINT32_MAX) {
      return nullptr;
    }
    const uint8_t* const value = p + tag.size;
    const FieldShape* const field = shape.Find(tag.value >> 3);
    const auto wire_type = static_cast<WireType>(tag.value & 7);
    if (field == nullptr || field->wire_type != wire_type) {
      if (is_strict_) return nullptr;
      const uint8_t* const next = SkipUnknown(value, end, tag.value, depth);
      if (next != nullptr) {
        evidence_.unknown_bytes += static_cast<size_t>(next - p);
        evidence_.bits -= kSurprise;
      }
      return next;
    }
    if (!SaveTag(shape, *field, tag.size, rank)) return nullptr;
    const uint8_t* const next = ReadValue(*field, value, end, depth);
    if (next != nullptr && field->kind != Kind::kMessage) {
      evidence_.known_bytes += static_cast<size_t>(next - p);
    } else if (next != nullptr) {
      evidence_.known_bytes += static_cast<size_t>(tag.size);
    }
    return next;
  }

  bool SaveTag(const Shape& shape, const FieldShape& field, int size,
               size_t* rank) {
    const double raw_bits = 8.0 * size;
    if (field.rank < *rank) return Surprise(raw_bits);
    Save(raw_bits, shape.choice_bits[shape.field_count - *rank]);
    *rank =
        field.rank + (field.kind == Kind::kMessage && field.is_list ? 0 : 1);
    return true;
  }

  const uint8_t* ReadValue(const FieldShape& field, const uint8_t* p,
                           const uint8_t* end, int depth) {
    if (field.wire_type == WireFormatLite::WIRETYPE_FIXED32) {
      return end - p < 4 ? nullptr : ReadFloat(p, !field.is_list);
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
    Save(8.0 * length.size, 7.0 * length.size + 1);
    return is_cut ? nullptr : ReadBlock(field, p, value_end);
  }

  const uint8_t* ReadMessage(const Shape& shape, int length_size,
                             const uint8_t* p, const uint8_t* end, int depth) {
    if (depth == kMaxDepth) return nullptr;
    const uint8_t* const stop = ReadFields(shape, p, end, depth + 1);
    if (stop != end) {
      if (is_strict_) return nullptr;
      evidence_.bits -= kFault;
      return end;
    }
    // It ends where its length says. That it ends at all is the choice of
    // none of the fields that could follow.
    Save(8.0 * length_size, shape.choice_bits[shape.field_count]);
    evidence_.known_bytes += static_cast<size_t>(length_size);
    return end;
  }

  const uint8_t* ReadBlock(const FieldShape& field, const uint8_t* p,
                           const uint8_t* end) {
    const double raw_bits = 8.0 * static_cast<double>(end - p);
    if (!field.is_list && p == end && is_strict_) return nullptr;
    switch (field.kind) {
      case Kind::kBytes:
        return end;
      case Kind::kString: {
        const bool holds = IsText(p, end);
        evidence_.strings.Add(holds);
        if (!holds) return Surprise(raw_bits) ? end : nullptr;
        Save(raw_bits, kTextByte * static_cast<double>(end - p));
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

  // Sign, exponent, and whether few digits are enough: the round numbers that
  // people choose are.
  const uint8_t* ReadFloat(const uint8_t* p, bool is_singular) {
    uint32_t bits;
    std::memcpy(&bits, p, sizeof(bits));
    const bool is_zero = bits << 1 == 0;
    if (is_zero && is_singular) return Surprise(32) ? p + 4 : nullptr;
    const unsigned exponent = bits >> 23 & 0xff;
    constexpr unsigned kLow = 107;   // a millionth
    constexpr unsigned kHigh = 157;  // a thousand million
    const bool holds = is_zero || (exponent >= kLow && exponent <= kHigh);
    evidence_.floats.Add(holds);
    if (!holds) {
      Save(32, 32 + kSurprise);
      return p + 4;
    }
    const bool is_round = (bits & 0xffff) == 0;
    Save(32, 1 + 5.7 + 1 + (is_round ? 7 : 23));
    return p + 4;
  }

  const uint8_t* ReadNumber(const FieldShape& field, const uint8_t* p,
                            const uint8_t* end) {
    const Varint varint = ReadVarint(p, end);
    if (varint.size == 0) return nullptr;
    p += varint.size;
    const double raw_bits = 8.0 * varint.size;
    const bool is_written = IsShortest(varint) && FitsKind(field, varint) &&
                            (field.is_list || varint.value != 0);
    if (field.kind == Kind::kEnum) {
      const auto& numbers = field.enum_numbers;
      const bool holds =
          is_written &&
          std::find(numbers.begin(), numbers.end(),
                    static_cast<int>(varint.value)) != numbers.end();
      evidence_.enums.Add(holds);
      if (holds) {
        Save(raw_bits, Log2(numbers.size() + 1));
      } else {
        Save(raw_bits, raw_bits + kSurprise);
      }
      return is_written || !is_strict_ ? p : nullptr;
    }
    if (!is_written) return Surprise(raw_bits) ? p : nullptr;
    if (field.kind == Kind::kBool) {
      Save(raw_bits, field.is_list ? 1 : 0);
    } else {
      // Ten bytes of a 32-bit kind are a negative number.
      const bool is_negative32 =
          varint.size == 10 && field.kind == Kind::kSigned32;
      const double payload = is_negative32 ? 32 : 7.0 * varint.size;
      Save(raw_bits, std::min(raw_bits, payload + kSizeBits[varint.size]));
    }
    return p;
  }

  // Whether the library writes such a varint for a field of that kind.
  static bool FitsKind(const FieldShape& field, const Varint& varint) {
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

  // Gives the end of a field that the type does not know, or null.
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
  Evidence evidence_;
};

Evidence WeighWith(bool is_strict, const Shape& shape, std::string_view bytes) {
  const auto* const begin = reinterpret_cast<const uint8_t*>(bytes.data());
  const uint8_t* const end = begin + bytes.size();
  Weigher weigher(is_strict);
  const uint8_t* const stop = weigher.ReadFields(shape, begin, end, 0);
  if (!is_strict && stop != end) weigher.AddFault();
  Evidence evidence = weigher.evidence();
  evidence.end = static_cast<size_t>(stop - begin);
  return evidence;
}

}  // namespace

Evidence Weigh(const Shape& shape, std::string_view bytes) {
  return WeighWith(false, shape, bytes);
}

Evidence WeighPrefix(const Shape& shape, std::string_view bytes) {
  return WeighWith(true, shape, bytes);
}

}  // namespace inspection
}  // namespace vantiro
