// Types are identified by bytes alone, also damaged and among random bytes.

#include "tools/identify/identify.h"

#include <google/protobuf/dynamic_message.h>
#include <gtest/gtest.h>

#include <memory>
#include <random>
#include <string>
#include <vector>

#include "tests/support/bytes.h"
#include "tests/tools/random_filler.h"
#include "tools/identify/scan.h"
#include "tools/schema/schema.h"

namespace vantiro {
namespace tools {
namespace {

using google::protobuf::DynamicMessageFactory;
using google::protobuf::Message;

std::string RecordOf(const Descriptor& type) {
  return tests::ReadData("records/" + type.full_name() + ".bin");
}

const std::vector<const Descriptor*>& Roots() {
  return Schema::BuiltIn().roots();
}

// Whether the type comes first, alone or with others of the same score.
bool ComesFirst(const Descriptor& type, const std::string& bytes) {
  const std::vector<Candidate> candidates = Identify(Roots(), bytes);
  for (const Candidate& candidate : candidates) {
    if (!IsTie(candidate, candidates.front())) return false;
    if (candidate.type == &type) return true;
  }
  return false;
}

TEST(Identify, RanksTheTypeOfReferenceRecordsFirstAlsoIfCut) {
  int identified = 0;
  for (const Descriptor* const root : Roots()) {
    const std::string bytes = RecordOf(*root);
    for (const size_t size : {bytes.size(), bytes.size() * 3 / 4}) {
      identified += ComesFirst(*root, bytes.substr(0, size)) ? 1 : 0;
    }
  }
  EXPECT_GE(identified, 30) << "of 32";
}

TEST(Identify, RanksTheTypeOfRandomRecordsFirst) {
  int identified = 0;
  int all = 0;
  DynamicMessageFactory factory;
  for (unsigned seed = 0; seed < 10; ++seed) {
    for (const Descriptor* const root : Roots()) {
      const std::unique_ptr<Message> message(factory.GetPrototype(root)->New());
      RandomFiller(seed, RandomFiller::kPlausible).Fill(message.get());
      const std::string bytes = message->SerializeAsString();
      if (bytes.size() < 8) continue;
      ++all;
      identified += ComesFirst(*root, bytes) ? 1 : 0;
    }
  }
  EXPECT_GE(all, 140);
  EXPECT_GE(identified * 100, all * 95) << identified << " of " << all;
}

TEST(Identify, IsNotConvincedByRandomBytes) {
  std::mt19937 random(1);
  for (int i = 0; i < 200; ++i) {
    std::string noise(100, '\0');
    for (char& byte : noise) byte = static_cast<char>(random());
    EXPECT_FALSE(IsConvincing(Identify(Roots(), noise).front()))
        << tests::ToHex(noise);
  }
  EXPECT_FALSE(IsConvincing(Identify(Roots(), "").front()));
}

TEST(Scan, FindsRecordsAmongRandomBytesAndNothingElse) {
  constexpr size_t kStep = 100000;
  std::string noise(Roots().size() * kStep, '\0');
  std::mt19937 random(2);
  for (char& byte : noise) byte = static_cast<char>(random());
  std::vector<size_t> offsets;
  for (size_t i = 0; i < Roots().size(); ++i) {
    const std::string bytes = RecordOf(*Roots()[i]);
    offsets.push_back(i * kStep + random() % (kStep - bytes.size()));
    noise.replace(offsets.back(), bytes.size(), bytes);
  }
  int found = 0;
  int false_count = 0;
  for (const Match& match : Scan(Roots(), noise, kDefaultScanBits, nullptr)) {
    const size_t i = match.offset / kStep;
    const bool is_right =
        match.offset == offsets[i] && match.type == Roots()[i];
    ++(is_right ? found : false_count);
  }
  EXPECT_GE(found, 15) << "of 16";
  EXPECT_LE(false_count, 1);
}

// A file that is one long record, or nearly one, takes time in proportion to
// its size.
TEST(Scan, TakesLinearTimeForRepetitions) {
  for (const std::string& unit :
       {tests::FromHex("0a 00"), tests::FromHex("0a 05 0d ff ff ff ff"),
        std::string("\0\0", 2)}) {
    std::string bytes;
    while (bytes.size() < 300000) bytes += unit;
    EXPECT_LT(Scan(Roots(), bytes, kDefaultScanBits, nullptr).size(),
              bytes.size());
  }
}

}  // namespace
}  // namespace tools
}  // namespace vantiro
