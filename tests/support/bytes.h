// Bytes as the tests write and show them.

#ifndef VANTIRO_TESTS_SUPPORT_BYTES_H_
#define VANTIRO_TESTS_SUPPORT_BYTES_H_

#include <string>

namespace vantiro {
namespace tests {

// Bytes from hexadecimal; spaces are skipped.
std::string FromHex(const std::string& hex);

// Two digits a byte, in groups of one byte.
std::string ToHex(const std::string& bytes);

// The content of a file below tests/data. Fails the test if there is none.
std::string ReadData(const std::string& name);

}  // namespace tests
}  // namespace vantiro

#endif  // VANTIRO_TESTS_SUPPORT_BYTES_H_
