// Bytes as the tests write, compare and show them, and the files that hold
// them.

#ifndef VANTIRO_TESTS_SUPPORT_BYTES_H_
#define VANTIRO_TESTS_SUPPORT_BYTES_H_

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace vantiro {
namespace tests {

// Bytes from hexadecimal; spaces are skipped.
std::string FromHex(const std::string& hex);

// Two digits a byte, in groups of one byte.
std::string ToHex(const std::string& bytes);

// Whether the bytes are the same; shows both sides if not.
testing::AssertionResult AreSame(const std::string& got,
                                 const std::string& wanted);

// The content of a file below tests/data. Fails the test if there is none.
std::string ReadData(const std::string& name);

// The lines of a file below tests/data, but those that are empty or begin with
// #, as columns between tabs. Fails the test at a line of more or less columns.
std::vector<std::vector<std::string>> ReadTable(const std::string& name,
                                                size_t columns);

// The message types of the files in tests/data/records, sorted: <type>.bin
// holds a record's bytes, <type>.txtpb the same in text format.
std::vector<std::string> RecordTypes();

}  // namespace tests
}  // namespace vantiro

#endif  // VANTIRO_TESTS_SUPPORT_BYTES_H_
