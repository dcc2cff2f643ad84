// Types are identified by bytes alone, also damaged and among random bytes.

#include "tools/identify/identify.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#include "tests/conformance/model/samples.h"
#include "tests/support/bytes.h"
#include "tools/identify/scan.h"
#include "tools/schema/schema.h"

namespace vantiro {
namespace tools {
namespace {

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
  std::mt19937 random(1);
  for (int i = 0; i < 10; ++i) {
    for (const Descriptor* const root : Roots()) {
      const std::string bytes =
          tests::RandomRecord(tests::FindType(root->full_name()),
                              tests::Values::kPlausible, &random);
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

std::string ReadFile(const std::string& path) {
  std::ifstream stream(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

// Lines of words, a table of numbers, zeros, and machine code as the program's
// own: what real files hold, and what a parser takes for fields.
std::string Carrier(size_t size, std::mt19937* random) {
  static constexpr const char* kWords[] = {"the ",      "record", "\n",
                                           "  return ", "x = ",   "0x1f, ",
                                           "\n\n@",     "(",      ");\n"};
  std::string bytes;
  const std::string program = ReadFile("/proc/self/exe");
  while (bytes.size() < size) {
    for (int i = 0; i < 2000; ++i) bytes += kWords[(*random)() % 9];
    for (uint32_t i = 0; i < 4000; ++i) {
      const uint32_t number = i * 3 + static_cast<uint32_t>((*random)() % 3);
      bytes.append(reinterpret_cast<const char*>(&number), sizeof(number));
    }
    for (int i = 0; i < 2000; ++i) {
      const float number = static_cast<float>(i % 50) / 4;
      bytes.append(reinterpret_cast<const char*>(&number), sizeof(number));
    }
    bytes.append(5000, '\0');
    const size_t from = (*random)() % (program.size() - 40000);
    bytes += program.substr(from, 40000);
  }
  return bytes;
}

TEST(Scan, FindsRecordsInFilesOfOtherThingsAndNothingElse) {
  std::mt19937 random(3);
  std::string file = Carrier(size_t{2} << 20, &random);
  EXPECT_TRUE(Scan(Roots(), file, kDefaultScanBits, nullptr).empty());
  int planted = 0;
  int found = 0;
  for (const Descriptor* const root : Roots()) {
    const std::string bytes = RecordOf(*root);
    if (bytes.size() < 64) continue;
    for (int i = 0; i < 10; ++i) {
      const std::string part =
          file.substr(random() % (file.size() - 60000), 60000);
      const size_t at = random() % part.size();
      const auto matches =
          Scan(Roots(), part.substr(0, at) + bytes + part.substr(at),
               kDefaultScanBits, nullptr);
      ++planted;
      found += matches.size() == 1 && matches[0].offset == at &&
                       matches[0].size == bytes.size() &&
                       matches[0].type == root
                   ? 1
                   : 0;
    }
  }
  EXPECT_GE(found * 100, planted * 95) << found << " of " << planted;
}

TEST(Scan, FindsRecordsInAFileOfNothingElse) {
  std::string bytes;
  for (const Descriptor* const root : Roots()) {
    const std::string record = RecordOf(*root);
    if (record.size() >= 64) bytes += record + std::string(2, '\0');
  }
  // Among other records the shortest ones can have less than the score.
  EXPECT_GE(Scan(Roots(), bytes, kDefaultScanBits, nullptr).size(), 6U)
      << "of 7";
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
  // Three have less than the score.
  EXPECT_EQ(found, 13);
  EXPECT_EQ(false_count, 0);
}

// A file that is one long record, or nearly one, takes time in proportion to
// its size.
TEST(Scan, TakesLinearTimeForRepetitions) {
  for (const std::string& unit :
       {tests::FromHex("0a 00"), tests::FromHex("0a 05 0d ff ff ff ff"),
        std::string("\0\0", 2), std::string("\x0a"), std::string("\x08\0", 2),
        tests::FromHex("0a 80 04"), tests::FromHex("0d 00 00 80 3f"),
        RecordOf(*Roots()[2])}) {
    std::string bytes;
    while (bytes.size() < 300000) bytes += unit;
    for (const double min_bits : {kDefaultScanBits, 0.0}) {
      EXPECT_LT(Scan(Roots(), bytes, min_bits, nullptr).size(), bytes.size());
    }
  }
}

}  // namespace
}  // namespace tools
}  // namespace vantiro
