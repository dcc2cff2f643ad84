#include "tools/io/log_prefix.h"

#include <regex>
#include <string>

namespace vantiro {
namespace tools {
namespace {

// A prefix is shorter; std::regex needs stack for each character.
constexpr size_t kMaxPrefixSize = 300;

std::string Pattern() {
  // With the spaces after them.
  const std::string date =
      R"((?:\d{4}-)?\d\d-\d\d \d\d:\d\d:\d\d\.\d+(?: ?[+-]\d{4})?\s+)";
  const std::string time = "(?:" + date + R"(|\s*\d+\.\d{3,}\s+))";
  const std::string priority = "[VDIWEFAS]";
  const std::string threadtime =
      time + R"((?:\w+\s+)?\d+\s+\d+\s+)" + priority + R"(\s+[^:]*: ?)";
  const std::string tag =
      "(?:" + time + ")?" + priority + R"(/[^:(]*(?:\([^:)]*\))?\s*: ?)";
  const std::string thread = priority + R"(\(\s*\d+:\s*\d+\) )";
  const std::string studio =
      time + R"(\d+-\d+\s+\S+\s+\S+\s+)" + priority + R"(\s+)";
  return threadtime + "|" + tag + "|" + thread + "|" + studio;
}

}  // namespace

size_t LogPrefixSize(std::string_view line) {
  static const std::regex kPrefix(Pattern());
  line = line.substr(0, kMaxPrefixSize);
  std::cmatch match;
  const bool is_log =
      std::regex_search(line.data(), line.data() + line.size(), match, kPrefix,
                        std::regex_constants::match_continuous);
  return is_log ? static_cast<size_t>(match.length()) : 0;
}

bool IsLogDivider(std::string_view line) {
  return line.substr(0, 12) == "--------- be";
}

}  // namespace tools
}  // namespace vantiro
