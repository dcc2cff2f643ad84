#include "tests/conformance/model/samples.h"

#include "tests/conformance/model/encoding.h"

namespace vantiro {
namespace tests {
namespace {

constexpr int kUndeclaredNumber = 1023;
// Too long to be held in a string object itself.
constexpr char kLong[] = "a string that takes storage of its own";

std::string Sample(const Type& type, size_t seed, int depth) {
  std::string record;
  for (const auto& [number, field] : type.fields) {
    const std::vector<Value> values = ValuesOf(field.kind);
    std::vector<Value> chosen = {values[seed % values.size()]};
    if (field.kind == Kind::MESSAGE && depth > 0) {
      chosen[0].bytes = Sample(*field.type, seed, depth - 1);
    }
    if (field.is_repeated) chosen.push_back(values[0]);
    record += Encode(field, chosen);
  }
  return record + UnknownField(static_cast<char>(seed));
}

}  // namespace

std::vector<Value> ValuesOf(Kind kind) {
  constexpr uint64_t kMinusOne = UINT64_MAX;
  switch (kind) {
    case Kind::FLOAT:  // 1.5, -2, a NaN, the smallest.
      return {{0x3fc00000, ""}, {0xc0000000, ""}, {0x7fc01234, ""}, {1, ""}};
    case Kind::UINT32:
      return {{1, ""}, {300, ""}, {UINT32_MAX, ""}};
    case Kind::INT32:
    case Kind::SINT32:
    case Kind::ENUM:  // Declared or not.
      return {{1, ""},
              {kMinusOne, ""},
              {static_cast<uint64_t>(int64_t{INT32_MIN}), ""},
              {INT32_MAX, ""}};
    case Kind::BOOL:
      return {{1, ""}};
    case Kind::UINT64:
    case Kind::INT64:
    case Kind::SINT64:
      return {{1, ""},
              {kMinusOne, ""},
              {uint64_t{1} << 63, ""},
              {INT64_MAX, ""},
              {uint64_t{1} << 33, ""}};
    case Kind::STRING:
      return {{0, std::string("\xc3\xa9\0", 3)}, {0, kLong}, {0, "ab"}};
    case Kind::BYTES:
      return {{0, std::string("\xff\xfe\0", 3)}, {0, kLong}, {0, "ab"}};
    case Kind::MESSAGE:
      return {{0, ""}, {0, UnknownField(7)}};
  }
  return {};
}

std::string Encode(const Field& field, const std::vector<Value>& values) {
  const WireType wire_type = TypeOf(field.kind);
  const bool is_packed = field.is_repeated && wire_type != kDelimited;
  std::string bytes;
  for (const Value& value : values) {
    if (wire_type == kDelimited) {
      bytes += Delimited(field.number, value.bytes);
    } else {
      if (!is_packed) bytes += Tag(field.number, wire_type);
      bytes += Element(field.kind, value.number);
    }
  }
  return is_packed && !bytes.empty() ? Delimited(field.number, bytes) : bytes;
}

std::string UnknownField(char value) {
  return Tag(kUndeclaredNumber, kVarint) + value;
}

std::string Sample(const Type& type, size_t seed) {
  return Sample(type, seed, 1);
}

}  // namespace tests
}  // namespace vantiro
