// Types are identified by bytes alone, also damaged and among random bytes.

#include "tools/identify/identify.h"

#include <google/protobuf/dynamic_message.h>
#include <gtest/gtest.h>

#include <memory>
#include <random>
#include <string>
#include <vector>

#include "tests/support/bytes.h"
#include "tools/identify/scan.h"
#include "tools/schema/schema.h"

namespace vantiro {
namespace tools {
namespace {

using google::protobuf::DynamicMessageFactory;
using google::protobuf::Message;
using google::protobuf::Reflection;

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

class RandomFiller {
 public:
  explicit RandomFiller(unsigned seed) : random_(seed) {}

  // Sets about two of three fields.
  void Fill(Message* message) {
    const Descriptor& type = *message->GetDescriptor();
    for (int i = 0; i < type.field_count(); ++i) {
      const int count = type.field(i)->is_repeated() ? Number(4) : Number(3);
      for (int n = 0; n < (type.field(i)->is_repeated() ? count : count > 0);
           ++n) {
        Set(*type.field(i), message);
      }
    }
  }

 private:
  int Number(int below) {
    return std::uniform_int_distribution<int>(0, below - 1)(random_);
  }

  // Not every runtime takes strings in the same way.
  template <typename P, typename T>
  void Put(void (Reflection::*set)(Message*, const FieldDescriptor*, P) const,
           void (Reflection::*add)(Message*, const FieldDescriptor*, P) const,
           const T& value, const FieldDescriptor& field, Message* message) {
    const auto put = field.is_repeated() ? add : set;
    (message->GetReflection()->*put)(message, &field, value);
  }

  void Set(const FieldDescriptor& field, Message* message) {
    using R = Reflection;
    switch (field.cpp_type()) {
      case FieldDescriptor::CPPTYPE_BOOL:
        return Put(&R::SetBool, &R::AddBool, true, field, message);
      case FieldDescriptor::CPPTYPE_ENUM:
        return Put(&R::SetEnumValue, &R::AddEnumValue,
                   Number(field.enum_type()->value_count()), field, message);
      case FieldDescriptor::CPPTYPE_FLOAT:
        return Put(&R::SetFloat, &R::AddFloat,
                   static_cast<float>(Number(100000)) / 7, field, message);
      case FieldDescriptor::CPPTYPE_INT32:
        return Put(&R::SetInt32, &R::AddInt32, Number(4000) - 500, field,
                   message);
      case FieldDescriptor::CPPTYPE_UINT32:
        return Put(&R::SetUInt32, &R::AddUInt32,
                   static_cast<uint32_t>(Number(4000)), field, message);
      case FieldDescriptor::CPPTYPE_INT64:
        return Put(&R::SetInt64, &R::AddInt64, int64_t{Number(4000)} << 20,
                   field, message);
      case FieldDescriptor::CPPTYPE_UINT64:
        return Put(&R::SetUInt64, &R::AddUInt64,
                   static_cast<uint64_t>(Number(4000)) << 20, field, message);
      case FieldDescriptor::CPPTYPE_STRING:
        return Put(&R::SetString, &R::AddString, std::string("rear_wide"),
                   field, message);
      case FieldDescriptor::CPPTYPE_MESSAGE:
        return Fill(
            field.is_repeated()
                ? message->GetReflection()->AddMessage(message, &field)
                : message->GetReflection()->MutableMessage(message, &field));
      default:
        FAIL() << field.full_name();
    }
  }

  std::mt19937 random_;
};

TEST(Identify, RanksTheTypeOfRandomRecordsFirst) {
  int identified = 0;
  int all = 0;
  DynamicMessageFactory factory;
  for (unsigned seed = 0; seed < 10; ++seed) {
    for (const Descriptor* const root : Roots()) {
      const std::unique_ptr<Message> message(factory.GetPrototype(root)->New());
      RandomFiller(seed).Fill(message.get());
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
