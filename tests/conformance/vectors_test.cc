// What the reference runtime made of some six thousand inputs, and whole
// records: the classes and the model do the same, given the bytes in any way.

#include "tests/support/vectors.h"

#include <google/protobuf/stubs/logging.h>
#include <gtest/gtest.h>

#include <random>
#include <utility>
#include <vector>

#include "tests/conformance/model/checked_message.h"
#include "tests/conformance/model/samples.h"
#include "tests/support/bytes.h"
#include "tests/support/differences.h"

namespace vantiro {
namespace tests {
namespace {

void ExpectOut(const CheckedMessage& message, bool is_known,
               const std::string& wanted) {
  const std::string bytes = message.Serialize();
  if (is_known) {
    EXPECT_TRUE(AreSame(bytes, wanted));
  }
}

// The operations on two messages, or on one and its copy.
void ReplayOnTwo(const Vector& vector, CheckedMessage* a, CheckedMessage* b) {
  if (vector.op == "mergefrom") {
    a->MergeFrom(*b);
  } else if (vector.op == "copyfrom") {
    a->CopyFrom(*b);
    a->CopyFrom(*a);
  } else if (vector.op == "swap") {
    a->Swap(b);
  } else {
    EXPECT_EQ(vector.op, "copyctor");
  }
  ExpectOut(*a, vector.has_out, vector.out);
  ExpectOut(*b, vector.has_out2, vector.out2);
}

void Replay(const Type& type, const Vector& vector) {
  const Input input_a = {vector.a, vector.chunk_size};
  const Input input_b = {vector.b, vector.chunk_size};
  Arena arena;
  CheckedMessage a(type, vector.op == "arena" ? &arena : nullptr);
  const Verdict verdict = a.Merge(input_a);
  bool ok = vector.op == "parse" ? verdict.complete : verdict.merged;
  if (vector.op == "merge2") {
    ok = a.Merge(input_b).merged && ok;
  } else if (vector.op == "copyctor") {
    CheckedMessage copy(a);
    ReplayOnTwo(vector, &copy, &a);
  } else if (vector.op == "clear" || (vector.op == "arena" && vector.has_b)) {
    a.Clear();
    ok = a.Merge(input_b).merged;
  } else if (vector.has_b) {
    CheckedMessage b(type, nullptr);
    ok = b.Merge(input_b).merged && ok;
    ReplayOnTwo(vector, &a, &b);
  }
  EXPECT_EQ(ok, vector.ok);
  if (!vector.has_out2) ExpectOut(a, vector.has_out, vector.out);
  if (!vector.has_b) {
    std::string written;
    for (const Input& input : InputsOf(vector.a)) {
      ReadByAllEntryPoints(type, input, &written);
    }
  }
}

class Vectors : public testing::TestWithParam<std::string> {};

TEST_P(Vectors, GiveTheReferenceResult) {
  // The runtime logs every string that is not UTF-8.
  const google::protobuf::LogSilencer silence;
  Differences differences;
  int count = 0;
  for (const Vector& vector : AllVectors()) {
    if (vector.op != GetParam()) continue;
    SCOPED_TRACE(vector.id + " (" + vector.kind + ") " + vector.type_name +
                 "\n  a: " + ToHex(vector.a) + "\n  b: " + ToHex(vector.b));
    differences.Check(vector.id,
                      [&] { Replay(FindType(vector.type_name), vector); });
    ++count;
  }
  EXPECT_GT(count, 100);
}

INSTANTIATE_TEST_SUITE_P(All, Vectors,
                         testing::Values("merge", "chunk", "parse", "merge2",
                                         "mergefrom", "copyfrom", "swap",
                                         "copyctor", "clear", "arena"),
                         [](const auto& op) { return op.param; });

TEST(Records, AreWrittenAsTheyWereRead) {
  EXPECT_EQ(RecordTypes().size(), 22u);
  for (const std::string& name : RecordTypes()) {
    const std::string bytes = ReadData("records/" + name + ".bin");
    for (const Input& input : InputsOf(bytes)) {
      std::string written;
      EXPECT_TRUE(
          ReadByAllEntryPoints(FindType(name), input, &written).complete);
      EXPECT_TRUE(AreSame(written, bytes)) << name;
    }
  }
}

// Values of every size, in whatever space is left: records as a whole, and cut
// off.
TEST(Records, OfRandomValuesAreReadAsByTheModel) {
  Differences differences;
  std::mt19937 random(1);
  std::string written;
  std::vector<std::pair<const Type*, Input>> cut_off;
  for (const Type& type : AllTypes()) {
    for (int i = 0; i < 30; ++i) {
      const std::string record =
          RandomRecord(type, Values::kExtreme, &random, 1);
      ReadByAllEntryPoints(type, {record}, &written);
      for (int cut = 0; cut < 4; ++cut) {
        const auto inputs =
            InputsOf(record.substr(0, random() % (record.size() + 1)));
        cut_off.emplace_back(&type, inputs[random() % inputs.size()]);
      }
    }
  }
  differences.Check("records that are cut off", [&] {
    for (const auto& [type, input] : cut_off) {
      ReadByAllEntryPoints(*type, input, &written);
    }
  });
}

}  // namespace
}  // namespace tests
}  // namespace vantiro
