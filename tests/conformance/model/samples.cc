#include "tests/conformance/model/samples.h"

#include <cstring>

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

// Of any size, and with all or no bits set as often.
uint64_t RandomBits(std::mt19937* random) {
  uint64_t bits = (*random)();
  bits = bits << 32 ^ (*random)();
  bits >>= (*random)() % 64;
  return (*random)() % 2 == 0 ? bits : ~bits;
}

std::string RandomString(Kind kind, std::mt19937* random) {
  static constexpr const char* kCharacters[] = {
      "a", "\"",     "\\",     "\n",     "\x01",   "\x7f",      "<",
      "'", "\u00fc", "\u0085", "\u200f", "\u2028", "\U0001f600"};
  std::string string;
  const bool is_long = (*random)() % 16 == 0;
  for (size_t i = (*random)() % (is_long ? 200 : 12); i > 0; --i) {
    string += kind == Kind::STRING
                  ? kCharacters[(*random)() % 13]
                  : std::string(1, static_cast<char>((*random)()));
  }
  return string;
}

Value ExtremeValue(Kind kind, std::mt19937* random) {
  if (kind == Kind::STRING || kind == Kind::BYTES) {
    return {0, RandomString(kind, random)};
  }
  const uint64_t bits = (*random)() % 8 == 0 ? 0 : RandomBits(random);
  switch (kind) {
    case Kind::FLOAT:
      return {(bits ^ (*random)() << 31) & UINT32_MAX, ""};
    case Kind::BOOL:
      return {bits & 1, ""};
    case Kind::UINT32:
    case Kind::INT32:
    case Kind::SINT32:
    case Kind::ENUM:
    case Kind::FIXED32:
    case Kind::SFIXED32:
      return {bits & UINT32_MAX, ""};
    case Kind::DOUBLE:
      return {bits ^ uint64_t{(*random)()} << 63, ""};
    default:
      return {bits, ""};
  }
}

Value PlausibleValue(Kind kind, std::mt19937* random) {
  const uint64_t number = (*random)() % 4000;
  switch (kind) {
    case Kind::STRING:
    case Kind::BYTES:
      return {0, "rear_wide"};
    case Kind::FLOAT: {
      const float value = static_cast<float>((*random)() % 100000) / 7;
      uint32_t bits;
      std::memcpy(&bits, &value, sizeof(bits));
      return {bits, ""};
    }
    case Kind::BOOL:
      return {1, ""};
    case Kind::ENUM:
      return {number % 3, ""};
    case Kind::UINT64:
    case Kind::INT64:
      return {number << 20, ""};
    case Kind::INT32:
    case Kind::SINT32:
      return {number - 500, ""};
    default:
      return {number, ""};
  }
}

size_t RandomCount(const Field& field, std::mt19937* random) {
  if (!field.is_repeated) return (*random)() % 3 == 0 ? 0 : 1;
  const bool is_long = field.kind != Kind::MESSAGE && (*random)() % 16 == 0;
  return (*random)() % (is_long ? 70 : 4);
}

}  // namespace

std::vector<Value> ValuesOf(Kind kind) {
  constexpr uint64_t kMinusOne = UINT64_MAX;
  switch (kind) {
    case Kind::FLOAT:  // 1.5, -2, a NaN, the smallest.
      return {{0x3fc00000, ""}, {0xc0000000, ""}, {0x7fc01234, ""}, {1, ""}};
    case Kind::DOUBLE:  // 1.5, a NaN, the smallest.
      return {{0x3ff8000000000000, ""}, {0x7ff8000000001234, ""}, {1, ""}};
    case Kind::UINT32:
    case Kind::FIXED32:
      return {{1, ""}, {300, ""}, {UINT32_MAX, ""}};
    case Kind::INT32:
    case Kind::SINT32:
    case Kind::SFIXED32:
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
    case Kind::FIXED64:
    case Kind::SFIXED64:
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
  const bool is_packed =
      field.is_repeated && field.is_packed && wire_type != kDelimited;
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

std::string RandomRecord(const Type& type, Values values, std::mt19937* random,
                         int depth) {
  const auto random_value =
      values == Values::kExtreme ? ExtremeValue : PlausibleValue;
  std::string record;
  for (const auto& [number, field] : type.fields) {
    std::vector<Value> chosen;
    for (size_t i = RandomCount(field, random); i > 0; --i) {
      if (field.kind != Kind::MESSAGE) {
        chosen.push_back(random_value(field.kind, random));
      } else if (depth > 0) {
        chosen.push_back(
            {0, RandomRecord(*field.type, values, random, depth - 1)});
      }
    }
    record += Encode(field, chosen);
  }
  return record;
}

}  // namespace tests
}  // namespace vantiro
