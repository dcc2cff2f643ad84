// The classes of the test units beside protoc's own classes of the same units:
// the same bytes and verdicts, also for input that is cut off or changed.

#include <gtest/gtest.h>

#include <random>

#include "all_types.h"
#include "stock_every_fixed.pb.h"
#include "stock_every_kind.pb.h"
#include "stock_far_numbers.pb.h"
#include "stock_nested_enums.pb.h"
#include "stock_strings.pb.h"
#include "stock_unpacked.pb.h"
#include "tests/conformance/model/samples.h"
#include "tests/conformance/model/wire_model.h"
#include "tests/support/bytes.h"

namespace vantiro {
namespace tests {
namespace {

// Protoc's classes of 3.21 write a -0.0.
template <typename T>
void DropNegativeZeros(T* /*message*/) {}
void DropNegativeZeros(stock::EveryKind* message) {
  if (message->float_value() == 0) message->set_float_value(0);
}
void DropNegativeZeros(stock::EveryFixed* message) {
  if (message->double_value() == 0) message->set_double_value(0);
  if (message->last_double() == 0) message->set_last_double(0);
}

void DropNegativeZeros(stock::FarNumbers* message) {
  if (message->near_float() == 0) message->set_near_float(0);
  if (message->next_float() == 0) message->set_next_float(0);
  if (message->third_float() == 0) message->set_third_float(0);
  if (message->fourth_float() == 0) message->set_fourth_float(0);
  if (message->far_float() == 0) message->set_far_float(0);
  if (message->far_double() == 0) message->set_far_double(0);
}

// Of what protoc's classes refuse, ours accept what the wire rules allow: 3.21
// does not read a tag of more than five bytes.
void ExpectAllowed(const Type& type, const std::string& bytes,
                   const MessageLite& ours) {
  ModelMessage model(type);
  ASSERT_TRUE(MergeModel({bytes}, &model).complete) << ToHex(bytes);
  ASSERT_TRUE(AreSame(ours.SerializeAsString(), model.Serialize()));
}

template <typename Stock>
void ExpectSame(const Type& type, const std::string& bytes, MessageLite* ours,
                int* accepted) {
  Stock stock;
  const bool is_accepted = ours->ParseFromString(bytes);
  if (!stock.ParseFromString(bytes)) {
    if (is_accepted) ExpectAllowed(type, bytes, *ours);
    return;
  }
  ASSERT_TRUE(is_accepted) << ToHex(bytes);
  ++*accepted;
  DropNegativeZeros(&stock);
  ASSERT_TRUE(AreSame(ours->SerializeAsString(), stock.SerializeAsString()))
      << ToHex(bytes);
  ASSERT_EQ(ours->ByteSizeLong(), stock.ByteSizeLong());
}

std::string Changed(std::string bytes, std::mt19937* random) {
  for (size_t i = (*random)() % 3 + 1; i > 0; --i) {
    bytes[(*random)() % bytes.size()] = static_cast<char>((*random)());
  }
  return bytes;
}

template <typename Ours, typename Stock>
void ExpectSameForRandomRecords() {
  const Type& type = FindType(Ours::default_instance().GetTypeName());
  const Owned ours = type.New();
  std::mt19937 random(1);
  int accepted = 0;
  int count = 0;
  for (int i = 0; i < 400 && !testing::Test::HasFatalFailure(); ++i) {
    const std::string record = RandomRecord(type, Values::kExtreme, &random, 2);
    ExpectSame<Stock>(type, record, ours.get(), &accepted);
    EXPECT_EQ(accepted, ++count);
  }
  for (int i = 0; i < 4000 && !testing::Test::HasFatalFailure(); ++i) {
    const std::string record = RandomRecord(type, Values::kExtreme, &random, 1);
    if (record.empty()) continue;
    ExpectSame<Stock>(type, record.substr(0, random() % record.size()),
                      ours.get(), &accepted);
    ExpectSame<Stock>(type, Changed(record, &random), ours.get(), &accepted);
    count += 2;
  }
  // Both happen.
  EXPECT_LT(accepted, count * 9 / 10);
  EXPECT_GT(accepted, count / 10);
}

TEST(Stock, EveryKindIsTheSame) {
  ExpectSameForRandomRecords<EveryKind, stock::EveryKind>();
}
TEST(Stock, EveryFixedIsTheSame) {
  ExpectSameForRandomRecords<EveryFixed, stock::EveryFixed>();
}
TEST(Stock, NestedEnumsAreTheSame) {
  ExpectSameForRandomRecords<Gauge, stock::Gauge>();
}
TEST(Stock, FarNumbersAreTheSame) {
  ExpectSameForRandomRecords<FarNumbers, stock::FarNumbers>();
  ExpectSameForRandomRecords<ThreeByteTags, stock::ThreeByteTags>();
}
TEST(Stock, StringsAreTheSame) {
  ExpectSameForRandomRecords<Strings, stock::Strings>();
}
TEST(Stock, UnpackedIsTheSame) {
  ExpectSameForRandomRecords<Unpacked, stock::Unpacked>();
}

}  // namespace
}  // namespace tests
}  // namespace vantiro
