// Strings, which are checked to be UTF-8, and bytes, which are not.

#include <gtest/gtest.h>

#include <memory>

#include "tests/conformance/wire/log.h"
#include "tests/conformance/wire/reading.h"

namespace vantiro {
namespace tests {
namespace {

// The zero byte, and the first and the last characters of each length.
const char* const kValid[] = {"61 00 7f", "c2 80",       "df bf",
                              "e0 a0 80", "ed 9f bf",    "ee 80 80",
                              "ef bf bf", "f0 90 80 80", "f4 8f bf bf"};

// Stray and cut off, overlong, surrogates, and beyond the last character.
const char* const kInvalid[] = {"80",
                                "bf",
                                "ff",
                                "fe",
                                "c2",
                                "c2 41",
                                "e2",
                                "e2 82",
                                "f0 90 80",
                                "c0 80",
                                "c1 bf",
                                "e0 9f bf",
                                "f0 8f bf bf",
                                "ed a0 80",
                                "ed bf bf",
                                "f4 90 80 80",
                                "f8 88 80 80 80"};

// A record of one field that holds `text`, at some distance from its ends.
Case RecordOf(const std::string& type_name, const std::string& tag,
              const std::string& text, size_t distance, const char* verdict) {
  const std::string ascii(distance, 'a');
  const std::string value = ascii + FromHex(text) + ascii;
  const std::string record =
      ToHex(FromHex(tag) + static_cast<char>(value.size()) + value);
  return {type_name, record, verdict, record, ""};
}

TEST(WireText, InvalidUtf8FailsTheParseAndStaysInTheField) {
  const std::string type = "z3a_debug_data.zhawb.DebugString";
  const std::vector<Given> ways = WaysFor("at hand");
  for (const size_t distance : {0, 1, 7, 8, 9, 40}) {
    const Log log;
    for (const char* text : kValid) {
      ExpectReading(RecordOf(type, "0a", text, distance, "reads"), ways);
    }
    EXPECT_EQ(log.lines(), "");
    for (const char* text : kInvalid) {
      ExpectReading(RecordOf(type, "0a", text, distance, "fails"), ways);
    }
  }
}

TEST(WireText, BytesAreNotChecked) {
  const Log log;
  for (const char* text : kInvalid) {
    ExpectReading(RecordOf("z3a_debug_data.zhawb.ZHawbDebugCameraInformation",
                           "42", text, 0, "reads"),
                  WaysFor(""));
  }
  EXPECT_EQ(log.lines(), "");
}

// Invalid bytes are written all the same. The log names the field, and tells
// reading from writing.
TEST(WireText, InvalidUtf8IsLoggedWithTheFieldsPath) {
  const struct {
    const char* type;
    const char* tag;
    const char* name;
  } fields[] = {{"zabc.CameraInformation", "32", "sensor_name"},
                {"zaf.ZAfFrameInput", "c2 01", "sensor_name"},
                {"zaf.ZAfInputSettings", "0a", "sensor_name"},
                {"zhawb.ZHawbDebugCameraInformation", "0a", "sensor_name"},
                {"zhawb.ZHawbDebugCameraInformation", "3a", "device_name"},
                {"zhawb.DebugString", "0a", "zhawb_debug"}};
  for (const auto& field : fields) {
    const std::string type_name = std::string("z3a_debug_data.") + field.type;
    const std::string path = "'" + type_name + "." + field.name + "'";
    const std::string record = FromHex(std::string(field.tag) + "01 ff");
    const std::unique_ptr<MessageLite> message(
        FindType(type_name)->create(nullptr));
    {
      const Log log;
      EXPECT_FALSE(message->ParseFromString(record));
      EXPECT_NE(log.lines().find(path), std::string::npos) << log.lines();
      EXPECT_NE(log.lines().find("parsing"), std::string::npos) << log.lines();
    }
    const Log log;
    EXPECT_EQ(ToHex(message->SerializeAsString()), ToHex(record));
    EXPECT_NE(log.lines().find(path), std::string::npos) << log.lines();
    EXPECT_NE(log.lines().find("serializing"), std::string::npos)
        << log.lines();
  }
}

}  // namespace
}  // namespace tests
}  // namespace vantiro
