#include <gtest/gtest.h>

#include <string>

#include "internal/read_singular.h"

namespace vantiro {
namespace internal {
namespace {

// Four fields, the last two of which have tags of two bytes.
constexpr uint32_t kFirstTag = 14 << 3 | 5;
constexpr char kFields[] =
    "\x75"
    "abcd"
    "\x7d"
    "efgh"
    "\x85\x01"
    "ijkl"
    "\x8d\x01"
    "mnop";

const uint8_t* Begin(const std::string& bytes) {
  return reinterpret_cast<const uint8_t*>(bytes.data());
}

bool AreNext(const std::string& bytes) {
  return AreFloatsNext<kFirstTag, 4>(Begin(bytes), Begin(bytes) + bytes.size());
}

TEST(FloatFields, AreReadTogether) {
  const std::string fields = std::string(kFields) + "z";
  ASSERT_TRUE(AreNext(fields));
  float values[5] = {};
  EXPECT_EQ((ReadFloatFields<kFirstTag, 4>(Begin(fields), values)),
            Begin(fields) + fields.size() - 1);
  EXPECT_EQ(std::string(reinterpret_cast<const char*>(values), sizeof(values)),
            std::string("abcdefghijklmnop") + std::string(4, '\0'));
}

// The parser has looked at the first tag, which need not be in its shortest
// encoding.
TEST(FloatFields, AreReadTogetherOnlyIfAllAreThere) {
  const std::string fields = kFields;
  for (size_t size = 0; size < fields.size(); ++size) {
    EXPECT_FALSE(AreNext(fields.substr(0, size))) << size;
  }
  for (size_t i = 0; i < fields.size(); ++i) {
    std::string changed = fields;
    changed[i] = static_cast<char>(changed[i] ^ 8);
    const bool is_later_tag =
        i == 5 || i == 10 || i == 11 || i == 16 || i == 17;
    EXPECT_EQ(AreNext(changed), !is_later_tag) << i;
  }
}

}  // namespace
}  // namespace internal
}  // namespace vantiro
