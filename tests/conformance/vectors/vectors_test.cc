// Replays what the reference runtime made of some six thousand inputs, on every
// road into a message and out of it.

#include "tests/support/vectors.h"

#include <google/protobuf/arena.h>
#include <google/protobuf/stubs/logging.h>
#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "tests/support/bytes.h"
#include "tests/support/roads.h"
#include "tests/support/types.h"

namespace vantiro {
namespace tests {
namespace {

using Owned = std::unique_ptr<MessageLite>;

Owned Make(const Type& type) { return Owned(type.create(nullptr)); }

void ExpectBytes(const Type& type, const MessageLite& message, bool known,
                 const std::string& wanted, const std::string& what) {
  const std::string bytes = Serialize(type, message);
  if (known) {
    EXPECT_EQ(ToHex(bytes), ToHex(wanted)) << what;
  }
}

bool Merge(const Type& type, const Vector& vector, const std::string& bytes,
           MessageLite* message) {
  return RoadsFor({vector.block, false}).front().read(type, bytes, message);
}

// Roads that are given the bytes alike agree on the verdict, merges and parses
// each among themselves, and on the message that they leave. `expect` gets the
// first road's.
void ReadAlike(const Type& type, const std::string& bytes, Given given,
               const std::function<void(const ReadRoad&, bool ok,
                                        const MessageLite&)>& expect) {
  std::map<bool, bool> verdicts;
  std::string first;
  const std::vector<ReadRoad> roads = RoadsFor(given);
  for (const ReadRoad& road : roads) {
    SCOPED_TRACE(road.name + ", blocks of " + std::to_string(given.block) +
                 (given.has_limit ? ", limit" : ""));
    const Owned message = Make(type);
    const bool ok = road.read(type, bytes, message.get());
    expect(road, ok, *message);
    EXPECT_EQ(ok, verdicts.insert({road.is_parse, ok}).first->second);
    const std::string left = message->SerializeAsString();
    if (&road == &roads.front()) first = left;
    EXPECT_EQ(ToHex(left), ToHex(first)) << "unlike the first road";
  }
}

void ReadOnAllRoads(const Type& type, const Vector& vector) {
  ReadAlike(type, vector.a, {vector.block, false},
            [&](const ReadRoad& road, bool ok, const MessageLite& message) {
              if (road.is_parse == (vector.op == "parse")) {
                EXPECT_EQ(ok, vector.ok);
              }
              ExpectBytes(type, message, vector.has_out, vector.out, "out");
            });
  for (const int block : {1, 2, 7, 16, 17, 40, 4096}) {
    for (const bool has_limit : {false, true}) {
      ReadAlike(type, vector.a, {block, has_limit},
                [](const ReadRoad&, bool, const MessageLite&) {});
    }
  }
}

void MergeTwice(const Type& type, const Vector& vector) {
  const Owned message = Make(type);
  const bool first = Merge(type, vector, vector.a, message.get());
  const bool second = Merge(type, vector, vector.b, message.get());
  EXPECT_EQ(first && second, vector.ok);
  ExpectBytes(type, *message, vector.has_out, vector.out, "out");
}

void CombineTwo(const Type& type, const Vector& vector) {
  const Owned a = Make(type);
  const Owned b = Make(type);
  const bool first = Merge(type, vector, vector.a, a.get());
  const bool second = Merge(type, vector, vector.b, b.get());
  EXPECT_EQ(first && second, vector.ok);
  if (vector.op == "mergefrom") {
    type.merge_from(a.get(), *b);
  } else if (vector.op == "copyfrom") {
    type.copy_from(a.get(), *b);
    type.copy_from(a.get(), *a);
  } else {
    type.swap(a.get(), b.get());
  }
  ExpectBytes(type, *a, vector.has_out, vector.out, "out");
  ExpectBytes(type, *b, vector.has_out2, vector.out2, "out2");
}

void CopyConstruct(const Type& type, const Vector& vector) {
  const Owned a = Make(type);
  EXPECT_EQ(Merge(type, vector, vector.a, a.get()), vector.ok);
  const Owned copy(type.copy(*a));
  ExpectBytes(type, *copy, vector.has_out, vector.out, "out");
  ExpectBytes(type, *a, vector.has_out2, vector.out2, "out2");
}

void ClearAndReuse(const Type& type, const Vector& vector) {
  const Owned message = Make(type);
  Merge(type, vector, vector.a, message.get());
  message->Clear();
  EXPECT_EQ(message->ByteSizeLong(), 0u);
  EXPECT_EQ(Merge(type, vector, vector.b, message.get()), vector.ok);
  ExpectBytes(type, *message, vector.has_out, vector.out, "out");
}

void ReadOnArena(const Type& type, const Vector& vector) {
  Arena arena;
  MessageLite* const message = type.create(&arena);
  bool ok = Merge(type, vector, vector.a, message);
  if (vector.has_b) {
    message->Clear();
    ok = Merge(type, vector, vector.b, message);
  }
  EXPECT_EQ(ok, vector.ok);
  ExpectBytes(type, *message, vector.has_out, vector.out, "out");
}

void Replay(const Type& type, const Vector& vector) {
  if (vector.op == "merge" || vector.op == "chunk" || vector.op == "parse") {
    ReadOnAllRoads(type, vector);
  } else if (vector.op == "merge2") {
    MergeTwice(type, vector);
  } else if (vector.op == "mergefrom" || vector.op == "copyfrom" ||
             vector.op == "swap") {
    CombineTwo(type, vector);
  } else if (vector.op == "copyctor") {
    CopyConstruct(type, vector);
  } else if (vector.op == "clear") {
    ClearAndReuse(type, vector);
  } else if (vector.op == "arena") {
    ReadOnArena(type, vector);
  } else {
    ADD_FAILURE() << "no such operation: " << vector.op;
  }
}

class Vectors : public testing::TestWithParam<std::string> {};

TEST_P(Vectors, GiveTheReferenceResult) {
  // The runtime logs every text that is not UTF-8.
  const google::protobuf::LogSilencer silence;
  int replayed = 0;
  for (const Vector& vector : AllVectors()) {
    if (vector.op != GetParam()) continue;
    SCOPED_TRACE(vector.id + " (" + vector.kind + ", " + vector.op + ") " +
                 vector.type_name + "\n  a: " + ToHex(vector.a) +
                 "\n  b: " + ToHex(vector.b));
    const Type* const type = FindType(vector.type_name);
    ASSERT_NE(type, nullptr);
    Replay(*type, vector);
    ++replayed;
  }
  EXPECT_GT(replayed, 0);
  std::cout << replayed << " inputs\n";
}

INSTANTIATE_TEST_SUITE_P(All, Vectors,
                         testing::Values("merge", "chunk", "parse", "merge2",
                                         "mergefrom", "copyfrom", "swap",
                                         "copyctor", "clear", "arena"),
                         [](const auto& op) { return op.param; });

}  // namespace
}  // namespace tests
}  // namespace vantiro
