#include "tests/support/bytes.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>

namespace vantiro {
namespace tests {

std::string FromHex(const std::string& hex) {
  std::string digits;
  for (const char c : hex) {
    if (std::isxdigit(static_cast<unsigned char>(c)) != 0) digits += c;
  }
  std::string bytes;
  for (size_t i = 0; i + 1 < digits.size(); i += 2) {
    bytes += static_cast<char>(std::stoi(digits.substr(i, 2), nullptr, 16));
  }
  return bytes;
}

std::string ToHex(const std::string& bytes) {
  static constexpr char kDigits[] = "0123456789abcdef";
  std::string hex;
  for (const char c : bytes) {
    if (!hex.empty()) hex += ' ';
    hex += kDigits[static_cast<unsigned char>(c) >> 4];
    hex += kDigits[static_cast<unsigned char>(c) & 15];
  }
  return hex;
}

testing::AssertionResult AreSame(const std::string& got,
                                 const std::string& wanted) {
  if (got == wanted) return testing::AssertionSuccess();
  return testing::AssertionFailure()
         << "\n  got:    " << ToHex(got) << "\n  wanted: " << ToHex(wanted);
}

std::string ReadData(const std::string& name) {
  std::ifstream file(std::string(VANTIRO_TEST_DATA) + "/" + name,
                     std::ios::binary);
  EXPECT_TRUE(file.good()) << "cannot read tests/data/" << name;
  return {std::istreambuf_iterator<char>(file),
          std::istreambuf_iterator<char>()};
}

std::vector<std::vector<std::string>> ReadTable(const std::string& name,
                                                size_t columns) {
  std::vector<std::vector<std::string>> rows;
  std::istringstream lines(ReadData(name));
  for (std::string line; std::getline(lines, line);) {
    if (line.empty() || line[0] == '#') continue;
    std::istringstream stream(line);
    std::vector<std::string> row;
    for (std::string column; std::getline(stream, column, '\t');) {
      row.push_back(column);
    }
    EXPECT_EQ(row.size(), columns) << line;
    row.resize(columns);
    rows.push_back(row);
  }
  return rows;
}

std::vector<std::string> RecordTypes() {
  std::vector<std::string> types;
  for (const auto& file :
       std::filesystem::directory_iterator(VANTIRO_TEST_DATA "/records")) {
    if (file.path().extension() == ".bin") types.push_back(file.path().stem());
  }
  std::sort(types.begin(), types.end());
  return types;
}

}  // namespace tests
}  // namespace vantiro
