// Strings, which are checked to be UTF-8.

#include <google/protobuf/stubs/logging.h>
#include <gtest/gtest.h>

#include "tests/conformance/model/checked_message.h"
#include "tests/conformance/model/encoding.h"
#include "tests/support/bytes.h"

namespace vantiro {
namespace tests {
namespace {

// Takes the lines that the runtime logs while it lives.
class Log {
 public:
  Log() : former_(google::protobuf::SetLogHandler(&Take)) { lines_.clear(); }
  ~Log() { google::protobuf::SetLogHandler(former_); }
  Log(const Log&) = delete;
  Log& operator=(const Log&) = delete;

  const std::string& lines() const { return lines_; }

 private:
  static void Take(google::protobuf::LogLevel, const char*, int,
                   const std::string& line) {
    lines_ += line + "\n";
  }

  static inline std::string lines_;
  google::protobuf::LogHandler* const former_;
};

TEST(Strings, AreCheckedAtEveryPosition) {
  const google::protobuf::LogSilencer silence;
  const Type& type = FindType("z3a_debug_data.zhawb.DebugString");
  for (size_t i = 0; i < 40; ++i) {
    std::string string(40, 'a');
    string[i] = '\x80';
    std::string written;
    const Input input = {Delimited(1, string)};
    EXPECT_FALSE(ReadByAllEntryPoints(type, input, &written).merged);
    EXPECT_TRUE(AreSame(written, input.bytes));
  }
}

// Invalid strings are written all the same. The log names the field, and tells
// reading from writing.
TEST(Strings, AreLoggedWithTheirFieldsPathUnlessTheyAreUtf8) {
  int count = 0;
  for (const Type& type : AllTypes()) {
    for (const auto& [number, field] : type.fields) {
      if (field.kind != Kind::STRING) continue;
      const std::string path =
          std::string("'") + type.name + "." + field.name + "'";
      const std::string record = Delimited(number, "\xff");
      const Owned message = type.New();
      {
        const Log log;
        EXPECT_FALSE(message->ParseFromString(record));
        EXPECT_NE(log.lines().find(path), std::string::npos) << log.lines();
        EXPECT_NE(log.lines().find("parsing"), std::string::npos);
      }
      const Log log;
      EXPECT_TRUE(AreSame(message->SerializeAsString(), record));
      EXPECT_NE(log.lines().find(path), std::string::npos) << log.lines();
      EXPECT_NE(log.lines().find("serializing"), std::string::npos);
      ++count;
    }
  }
  EXPECT_GT(count, 6);
}

}  // namespace
}  // namespace tests
}  // namespace vantiro
