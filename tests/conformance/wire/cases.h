// Bytes to read and what becomes of them, from a file in tests/data. The head
// of the file tells what its lines and columns mean.

#ifndef VANTIRO_TESTS_CONFORMANCE_WIRE_CASES_H_
#define VANTIRO_TESTS_CONFORMANCE_WIRE_CASES_H_

#include <string>
#include <vector>

namespace vantiro {
namespace tests {

struct Case {
  std::string type_name;
  // Bytes are in hexadecimal.
  std::string input;
  std::string verdict;
  std::string output;
  // Text format, or empty.
  std::string holds;
};

struct CaseGroup {
  std::string suite;
  std::string name;
  // How the bytes are to be given, or empty.
  std::string ways;
  std::vector<Case> cases;
};

std::vector<CaseGroup> ReadCases(const std::string& file);

}  // namespace tests
}  // namespace vantiro

#endif  // VANTIRO_TESTS_CONFORMANCE_WIRE_CASES_H_
