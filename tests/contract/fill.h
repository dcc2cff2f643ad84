// Records with something in every field.

#ifndef VANTIRO_TESTS_CONTRACT_FILL_H_
#define VANTIRO_TESTS_CONTRACT_FILL_H_

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <string>

#include "arena_less.pb.h"
#include "every_kind.pb.h"
#include "tests/support/bytes.h"
#include "tests/support/merge.h"

namespace vantiro {
namespace tests {

// The classes that have every kind of field, for typed tests.
using EveryKindTypes = testing::Types<EveryKind, ArenaLess>;

// Too long to be held in a string object itself.
inline std::string LongText(int seed) {
  return "a text that takes storage of its own " + std::to_string(seed);
}

// A field that no class declares: number 1023, a varint.
inline std::string UnknownField(char value) {
  return "\xf8\x3f" + std::string(1, value);
}

// Nothing singular is zero for a `seed` from 1 to 100; two seeds agree in
// nothing but the bool.
template <typename T>
void Fill(int seed, T* message) {
  message->set_float_value(0.5f * static_cast<float>(seed));
  message->set_uint32_value(static_cast<uint32_t>(seed));
  message->set_int32_value(-seed);
  message->set_sint32_value(-seed);
  message->set_uint64_value(static_cast<uint64_t>(seed) << 40);
  message->set_int64_value(-(int64_t{seed} << 40));
  message->set_sint64_value(-(int64_t{seed} << 40));
  message->set_bool_value(true);
  message->set_enum_value(static_cast<Level>(seed));
  message->set_string_value(LongText(seed));
  message->set_bytes_value(LongText(seed) + "\xff");
  message->mutable_child()->set_text(LongText(seed));
  for (const int element : {seed, 0}) {
    message->add_float_list(static_cast<float>(element));
    message->add_uint32_list(static_cast<uint32_t>(element));
    message->add_int32_list(-element);
    message->add_sint32_list(-element);
    message->add_uint64_list(static_cast<uint64_t>(element) << 40);
    message->add_int64_list(-(int64_t{element} << 40));
    message->add_sint64_list(-(int64_t{element} << 40));
    message->add_bool_list(element != 0);
    message->add_enum_list(static_cast<Level>(element));
    message->add_children()->set_text(LongText(element));
  }
  EXPECT_TRUE(MergeBytes(UnknownField(static_cast<char>(seed)), message));
}

template <typename T>
T Filled(int seed) {
  T message;
  Fill(seed, &message);
  return message;
}

template <typename T>
std::string HexOf(const T& message) {
  return ToHex(message.SerializeAsString());
}

inline float FloatOf(uint32_t bits) {
  float value;
  std::memcpy(&value, &bits, sizeof value);
  return value;
}

inline uint32_t BitsOf(float value) {
  uint32_t bits;
  std::memcpy(&bits, &value, sizeof bits);
  return bits;
}

}  // namespace tests
}  // namespace vantiro

#endif  // VANTIRO_TESTS_CONTRACT_FILL_H_
