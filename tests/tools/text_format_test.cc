// Text is read as the runtime's parser reads it.

#include "tools/formats/text_format.h"

#include <google/protobuf/dynamic_message.h>
#include <google/protobuf/io/tokenizer.h>
#include <google/protobuf/stubs/logging.h>
#include <google/protobuf/text_format.h>
#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <random>
#include <string>

#include "tests/conformance/model/samples.h"
#include "tests/support/bytes.h"
#include "tools/formats/format_error.h"
#include "tools/wire/record_tree.h"

namespace vantiro {
namespace tools {
namespace {

using google::protobuf::DynamicMessageFactory;
using google::protobuf::Message;
using google::protobuf::TextFormat;
using tests::ToHex;

class NoLog : public google::protobuf::io::ErrorCollector {
 public:
  void AddError(int /*line*/, int /*column*/,
                const std::string& /*message*/) override {}
};

class Texts {
 public:
  // Of a record of the type, as the runtime's printer writes it, with other
  // notations and, for most, random changes.
  std::string Random(const Descriptor& type) {
    const std::unique_ptr<Message> message = New(type);
    EXPECT_TRUE(message->ParseFromString(tests::RandomRecord(
        tests::FindType(type.full_name()), tests::Values::kExtreme, &random_)));
    TextFormat::Printer printer;
    printer.SetSingleLineMode(Chance(2));
    printer.SetUseShortRepeatedPrimitives(Chance(2));
    printer.SetUseUtf8StringEscaping(Chance(2));
    std::string text;
    printer.PrintToString(*message, &text);
    if (text.size() > 600) text.resize(text.rfind(' ', 600));
    for (int i = Number(4); i > 0 && !text.empty(); --i) Change(&text);
    return text;
  }

  // As the runtime's parser reads it and the library writes it.
  std::optional<std::string> Parse(const Descriptor& type,
                                   const std::string& text) {
    const std::unique_ptr<Message> message = New(type);
    TextFormat::Parser parser;
    NoLog no_log;
    parser.RecordErrorsTo(&no_log);
    if (!parser.ParseFromString(text, message.get())) return std::nullopt;
    const std::string bytes = message->SerializeAsString();
    return Serialize(DecodeRecord(type, bytes).record);
  }

 private:
  std::unique_ptr<Message> New(const Descriptor& type) {
    return std::unique_ptr<Message>(factory_.GetPrototype(&type)->New());
  }

  int Number(int below) {
    return std::uniform_int_distribution<int>(0, below - 1)(random_);
  }
  bool Chance(int of) { return Number(of) == 0; }

  void Change(std::string* text) {
    static constexpr const char* kParts[] = {
        "{",           "}",           "<",           ">",        "[",
        "]",           ",",           ";",           ":",        "-",
        "0",           "1",           "0x1",         "017",      "08",
        "1.5",         "1e3",         "1e99",        ".5f",      "inf",
        "NaN",         "-nan",        "true",        "False",    "t",
        " ",           "# note\n",    "\"",          "'",        "\"a\"",
        "\\",          "\\x41",       "\\101",       "\\u00fc",  "\\n",
        "field_1: 0 ", "field_1: 1 ", "99999999999", "Infinity", "f",
        "/",           "\n",          "[1, 2]",      "{}",       "<>"};
    constexpr int kCount = sizeof(kParts) / sizeof(kParts[0]);
    const auto at = static_cast<size_t>(Number(static_cast<int>(text->size())));
    const size_t word = std::min(text->find_first_of(" \n", at), text->size());
    switch (Number(5)) {
      case 0:
        text->erase(at, 1);
        break;
      case 1:
        text->insert(at, kParts[Number(kCount)]);
        break;
      case 2:
        text->replace(at, 1, kParts[Number(kCount)]);
        break;
      case 3:  // the rest of a word
        text->replace(at, word - at, kParts[Number(kCount)]);
        break;
      default:  // a whole value
        if (word < text->size()) {
          const size_t end =
              std::min(text->find_first_of(" \n", word + 1), text->size());
          text->replace(word + 1, end - word - 1, kParts[Number(kCount)]);
        }
    }
  }

  DynamicMessageFactory factory_;
  std::mt19937 random_;
};

TEST(TextFormat, IsReadAsTheRuntimeReadsIt) {
  // The runtime logs strings that are not UTF-8.
  const google::protobuf::LogSilencer silence;
  Texts texts;
  int read = 0;
  int refused = 0;
  const Messages& types = Schema::BuiltIn().messages();
  for (size_t i = 0; i < 3000; ++i) {
    const Descriptor& type = *types[i % types.size()];
    const std::string text = texts.Random(type);
    SCOPED_TRACE(type.full_name() + '\n' + text);
    const std::optional<std::string> expected = texts.Parse(type, text);
    ++(expected.has_value() ? read : refused);
    try {
      const Record record = ReadText(type, text);
      // Unknown fields by their number are our own.
      if (!expected.has_value() && !record.unknown.empty()) continue;
      ASSERT_TRUE(expected.has_value()) << "refused by the runtime";
      ASSERT_EQ(ToHex(Serialize(record)), ToHex(*expected));
    } catch (const FormatError& error) {
      // The library would refuse the record.
      const std::string what = error.what();
      if (what.find("not UTF-8") != std::string::npos) continue;
      ASSERT_FALSE(expected.has_value()) << what;
    }
  }
  EXPECT_GT(read, 800);
  EXPECT_GT(refused, 800);
}

}  // namespace
}  // namespace tools
}  // namespace vantiro
