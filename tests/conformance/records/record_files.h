// The records in tests/data/records, one or more of each root, as
// <type name>.bin and as text in <type name>.txtpb.

#ifndef VANTIRO_TESTS_CONFORMANCE_RECORDS_RECORD_FILES_H_
#define VANTIRO_TESTS_CONFORMANCE_RECORDS_RECORD_FILES_H_

#include <filesystem>
#include <string>
#include <vector>

namespace vantiro {
namespace tests {

// The type names.
inline std::vector<std::string> RecordFiles() {
  std::vector<std::string> names;
  for (const auto& file :
       std::filesystem::directory_iterator(VANTIRO_TEST_DATA "/records")) {
    if (file.path().extension() == ".bin") names.push_back(file.path().stem());
  }
  return names;
}

}  // namespace tests
}  // namespace vantiro

#endif  // VANTIRO_TESTS_CONFORMANCE_RECORDS_RECORD_FILES_H_
