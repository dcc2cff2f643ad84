// The JSON is that of Protocol Buffers: its own library reads what the program
// writes, and the program reads what that library writes.

#include "tools/formats/json.h"

#include <google/protobuf/dynamic_message.h>
#include <google/protobuf/util/json_util.h>
#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <random>
#include <string>

#include "tests/conformance/model/samples.h"
#include "tests/support/bytes.h"
#include "tools/formats/format_error.h"
#include "tools/record/record.h"

namespace vantiro {
namespace tools {
namespace {

using google::protobuf::DynamicMessageFactory;
using google::protobuf::Message;
using google::protobuf::util::JsonPrintOptions;
using tests::FromHex;
using tests::ToHex;

constexpr int kRecordsOfAType = 8;

// With the usual NaN instead of others, which JSON has not, and as the library
// writes it.
std::string Canonical(const Descriptor& type, const std::string& bytes) {
  const Record record = DecodeRecord(type, bytes).record;
  return Serialize(
      ReadJson(type, RecordJson(record, JsonOptions{false, true})));
}

std::string Written(const Descriptor& type, const std::string& bytes) {
  return Serialize(DecodeRecord(type, bytes).record);
}

class ProtoJson : public testing::Test {
 protected:
  template <typename Check>
  void ForRandomRecords(const Check& check) {
    std::mt19937 random(1);
    for (const Descriptor* const type : Schema::BuiltIn().messages()) {
      for (int i = 0; i < kRecordsOfAType; ++i) {
        const std::unique_ptr<Message> message = New(*type);
        ASSERT_TRUE(message->ParseFromString(
            tests::RandomRecord(tests::FindType(type->full_name()),
                                tests::Values::kExtreme, &random)));
        SCOPED_TRACE(type->full_name() +
                     "\n  bytes: " + ToHex(message->SerializeAsString()));
        check(*message);
        if (HasFailure()) return;
      }
    }
  }

  std::unique_ptr<Message> New(const Descriptor& type) {
    return std::unique_ptr<Message>(factory_.GetPrototype(&type)->New());
  }

 private:
  DynamicMessageFactory factory_;
};

std::string InLines(const Record& record, const JsonOptions& options) {
  std::string text;
  JsonPrinter out(2, &text);
  out.BeginObject();
  WriteMembers(record, options, &out);
  out.EndObject();
  return text;
}

TEST_F(ProtoJson, OfADamagedRecordHoldsWhatCouldBeRead) {
  ForRandomRecords([](const Message& message) {
    const Descriptor& type = *message.GetDescriptor();
    // Damage makes strings that are not UTF-8, unknown fields and NaNs.
    std::string bytes = message.SerializeAsString();
    for (size_t i = 0; i < 4; ++i) {
      const Record record = DecodeRecord(type, bytes).record;
      const std::string json = RecordJson(record, {});
      ASSERT_EQ(ToHex(Serialize(ReadJson(type, json))),
                ToHex(Serialize(record)))
          << json;
      ASSERT_EQ(Json::parse(InLines(record, {})), Json::parse(json));
      if (!bytes.empty()) bytes[bytes.size() * i / 4] ^= '\x55';
    }
  });
}

// At each power of ten, where the notation changes.
TEST(JsonPrinter, WritesFloatsAsJsonDoes) {
  for (int power = -45; power <= 38; ++power) {
    for (const double factor : {1.0, -1.0, 1.5, 1.2345678, 9.9999999}) {
      const auto value = static_cast<float>(factor * std::pow(10, power));
      if (std::isinf(value)) continue;
      std::string text;
      JsonPrinter(-1, &text).Float(value);
      const Json read = Json::parse(text);
      EXPECT_EQ(text, read.dump());
      EXPECT_EQ(static_cast<float>(read.get<double>()), value) << text;
    }
  }
}

TEST_F(ProtoJson, IsReadByTheRuntime) {
  ForRandomRecords([this](const Message& message) {
    const Descriptor& type = *message.GetDescriptor();
    const std::string bytes = message.SerializeAsString();
    const Record record = DecodeRecord(type, bytes).record;
    for (const bool has_original_names : {false, true}) {
      const std::string json =
          RecordJson(record, JsonOptions{has_original_names, true});
      const std::unique_ptr<Message> read = New(type);
      const auto status =
          google::protobuf::util::JsonStringToMessage(json, read.get());
      ASSERT_TRUE(status.ok()) << status.ToString() << '\n' << json;
      ASSERT_EQ(ToHex(Written(type, read->SerializeAsString())),
                ToHex(Canonical(type, bytes)))
          << json;
    }
  });
}

TEST_F(ProtoJson, OfTheRuntimeIsRead) {
  ForRandomRecords([](const Message& message) {
    const Descriptor& type = *message.GetDescriptor();
    for (const bool is_other_style : {false, true}) {
      JsonPrintOptions options;
      options.preserve_proto_field_names = is_other_style;
      options.always_print_primitive_fields = is_other_style;
      options.always_print_enums_as_ints = is_other_style;
      std::string json;
      ASSERT_TRUE(
          google::protobuf::util::MessageToJsonString(message, &json, options)
              .ok());
      ASSERT_EQ(ToHex(Serialize(ReadJson(type, json))),
                ToHex(Canonical(type, message.SerializeAsString())))
          << json;
    }
  });
}

TEST_F(ProtoJson, WithAllMembersHoldsTheWholeRecord) {
  ForRandomRecords([](const Message& message) {
    const Descriptor& type = *message.GetDescriptor();
    const std::string bytes =
        message.SerializeAsString() + FromHex("fa ff 7f 02 00 ff");
    const Record record = DecodeRecord(type, bytes).record;
    ASSERT_EQ(ToHex(Serialize(ReadJson(type, RecordJson(record, {})))),
              ToHex(Serialize(record)));
  });
}

}  // namespace
}  // namespace tools
}  // namespace vantiro
