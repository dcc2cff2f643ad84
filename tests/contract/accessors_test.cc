// The accessors of every kind of field, in classes with and without arenas.

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <type_traits>

#include "all_units.h"
#include "tests/contract/fill.h"
#include "tests/support/bytes.h"

namespace vantiro {
namespace tests {
namespace {

template <typename T>
class Accessors : public testing::Test {};
TYPED_TEST_SUITE(Accessors, EveryKindTypes);

template <typename T, typename Value>
void ExpectHolds(void (T::*set)(Value), Value (T::*get)() const,
                 void (T::*clear)(), Value low, Value high) {
  T message;
  for (const Value value : {low, high}) {
    EXPECT_EQ((message.*get)(), Value());
    (message.*set)(value);
    EXPECT_EQ((message.*get)(), value);
    T read;
    EXPECT_TRUE(read.ParseFromString(message.SerializeAsString()));
    EXPECT_EQ((read.*get)(), value) << HexOf(message);
    (message.*clear)();
    EXPECT_EQ(HexOf(message), "");
  }
}

#define EXPECT_HOLDS(name, low, high)                                   \
  ExpectHolds(&TypeParam::set_##name##_value, &TypeParam::name##_value, \
              &TypeParam::clear_##name##_value, low, high)

TYPED_TEST(Accessors, OfScalarsHoldTheWholeRange) {
  constexpr auto kLow = std::numeric_limits<int32_t>::min();
  constexpr auto kHigh = std::numeric_limits<int32_t>::max();
  constexpr auto kLow64 = std::numeric_limits<int64_t>::min();
  constexpr auto kHigh64 = std::numeric_limits<int64_t>::max();
  EXPECT_HOLDS(float, -3.4e38f, 1e-45f);
  EXPECT_HOLDS(uint32, 1u, ~uint32_t{0});
  EXPECT_HOLDS(int32, kLow, kHigh);
  EXPECT_HOLDS(sint32, kLow, kHigh);
  EXPECT_HOLDS(uint64, uint64_t{1}, ~uint64_t{0});
  EXPECT_HOLDS(int64, kLow64, kHigh64);
  EXPECT_HOLDS(sint64, kLow64, kHigh64);
  EXPECT_HOLDS(bool, true, true);
  // Enums are open: any number stays as it is.
  EXPECT_HOLDS(enum, static_cast<Level>(kLow), static_cast<Level>(77));
}

#define EXPECT_LISTS(name, first, second)                           \
  do {                                                              \
    TypeParam message;                                              \
    message.add_##name##_list(second);                              \
    message.add_##name##_list(second);                              \
    message.set_##name##_list(0, first);                            \
    message.mutable_##name##_list()->Add(first);                    \
    EXPECT_EQ(message.name##_list_size(), 3);                       \
    EXPECT_EQ(message.name##_list(0), first);                       \
    EXPECT_EQ(message.name##_list(1), second);                      \
    EXPECT_EQ(message.name##_list().Get(2), first);                 \
    TypeParam read;                                                 \
    EXPECT_TRUE(read.ParseFromString(message.SerializeAsString())); \
    EXPECT_EQ(HexOf(read), HexOf(message));                         \
    EXPECT_EQ(read.name##_list(1), second);                         \
    message.clear_##name##_list();                                  \
    EXPECT_EQ(message.name##_list_size(), 0);                       \
  } while (false)

TYPED_TEST(Accessors, OfListsReachTheElementsAndTheWhole) {
  EXPECT_LISTS(float, 0.5f, -2.0f);
  EXPECT_LISTS(uint32, 1u, 0xffffffffu);
  EXPECT_LISTS(int32, 1, -1);
  EXPECT_LISTS(sint32, 1, -1);
  EXPECT_LISTS(uint64, 1u, ~uint64_t{0});
  EXPECT_LISTS(int64, 1, -(int64_t{1} << 40));
  EXPECT_LISTS(sint64, 1, -(int64_t{1} << 40));
  EXPECT_LISTS(bool, false, true);
  EXPECT_LISTS(enum, LEVEL_HIGH, static_cast<Level>(-77));
}

TYPED_TEST(Accessors, OfTextTakeItInEveryForm) {
  TypeParam message;
  const std::string text = "text";
  message.set_string_value(text);
  message.set_bytes_value(text);
  EXPECT_EQ(message.string_value() + message.bytes_value(), "texttext");
  message.set_string_value(std::string("moved"));
  message.set_bytes_value(std::string("moved"));
  EXPECT_EQ(message.string_value() + message.bytes_value(), "movedmoved");
  message.set_string_value("to\0here");
  message.set_bytes_value("to\0here");
  EXPECT_EQ(message.string_value() + message.bytes_value(), "toto");
  message.set_string_value("a\0b", 3);
  const unsigned char raw[] = {0xff, 0x00, 0x80};
  message.set_bytes_value(static_cast<const void*>(raw), sizeof raw);
  message.mutable_string_value()->append("c");
  message.mutable_bytes_value()->append("\x01");
  EXPECT_EQ(ToHex(message.string_value()), "61 00 62 63");
  EXPECT_EQ(ToHex(message.bytes_value()), "ff 00 80 01");
  message.clear_string_value();
  message.clear_bytes_value();
  EXPECT_EQ(message.string_value() + message.bytes_value(), "");
}

TYPED_TEST(Accessors, OfAChildMakeItPresentByChangeOnly) {
  TypeParam message;
  EXPECT_EQ(&message.child(), &Leaf::default_instance());
  EXPECT_FALSE(message.has_child()) << "after a read";
  Leaf* const child = message.mutable_child();
  EXPECT_TRUE(message.has_child());
  EXPECT_EQ(message.mutable_child(), child);
  EXPECT_EQ(&message.child(), child);
  EXPECT_EQ(HexOf(message), "62 00") << "present and empty";
  message.clear_child();
  EXPECT_FALSE(message.has_child());
  EXPECT_EQ(&message.child(), &Leaf::default_instance());
}

TYPED_TEST(Accessors, OfChildrenReachTheElementsAndTheWhole) {
  TypeParam message;
  Leaf* const first = message.add_children();
  message.mutable_children(0)->set_number(1);
  message.mutable_children()->Add()->set_number(2);
  EXPECT_EQ(message.children_size(), 2);
  EXPECT_EQ(&message.children(0), first);
  EXPECT_EQ(message.children().Get(0).number(), 1);
  EXPECT_EQ(message.children(1).number(), 2);
  message.clear_children();
  EXPECT_EQ(message.children_size(), 0);
}

TEST(Classes, NameTheirFieldsNumbersAndNestedTypes) {
  EXPECT_EQ(EveryKind::kFloatValueFieldNumber, 1);
  EXPECT_EQ(ArenaLess::kUint32ValueFieldNumber, 2);
  EXPECT_EQ(ArenaLess::kChildrenFieldNumber, 30);
  using namespace z3a_debug_data::zaf;  // NOLINT: long names
  EXPECT_EQ(ZAfFrameInputSmartRoi::kField4FieldNumber, 4);
  EXPECT_EQ(ZAfFrameInputSmartRoi::kPdWindowListFieldNumber, 6);
  EXPECT_TRUE((std::is_same<ArenaLess::Nested, ArenaLess_Nested>::value));
  EXPECT_TRUE(
      (std::is_same<ZAfFrameOutput::ZAfFrameControl::ZAfLensCommand,
                    ZAfFrameOutput_ZAfFrameControl_ZAfLensCommand>::value));
}

TEST(Fields, AreWrittenByNumberWhateverTheOrderOfDeclaration) {
  OutOfOrder message;
  message.set_second(2);
  message.set_first(1);
  EXPECT_EQ(ToHex(message.SerializeAsString()), "08 01 10 02");
}

}  // namespace
}  // namespace tests
}  // namespace vantiro
