// The runtime's log lines.

#ifndef VANTIRO_TESTS_CONFORMANCE_WIRE_LOG_H_
#define VANTIRO_TESTS_CONFORMANCE_WIRE_LOG_H_

#include <google/protobuf/stubs/logging.h>

#include <string>

namespace vantiro {
namespace tests {

// Takes the lines while it lives, one at a time.
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

}  // namespace tests
}  // namespace vantiro

#endif  // VANTIRO_TESTS_CONFORMANCE_WIRE_LOG_H_
