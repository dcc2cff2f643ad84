#include "tests/support/bytes.h"

#include <gtest/gtest.h>

#include <cctype>
#include <fstream>
#include <iterator>

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

std::string ReadData(const std::string& name) {
  std::ifstream file(std::string(VANTIRO_TEST_DATA) + "/" + name,
                     std::ios::binary);
  EXPECT_TRUE(file.good()) << "cannot read tests/data/" << name;
  return {std::istreambuf_iterator<char>(file),
          std::istreambuf_iterator<char>()};
}

}  // namespace tests
}  // namespace vantiro
