#include "examples/demo/record_file.h"

#include <fstream>
#include <iterator>

namespace vantiro::examples {

std::string RecordPath(const std::string& folder,
                       const std::string& type_name) {
  return folder + "/" + type_name + ".bin";
}

std::string ReferenceFolder() { return VANTIRO_REFERENCE_RECORDS; }

bool WriteFile(const std::string& path, const std::string& bytes) {
  std::ofstream file(path, std::ios::binary);
  file << bytes;
  file.close();
  return file.good();
}

bool ReadFile(const std::string& path, std::string* bytes) {
  std::ifstream file(path, std::ios::binary);
  if (!file) return false;
  bytes->assign(std::istreambuf_iterator<char>(file),
                std::istreambuf_iterator<char>());
  return !file.bad();
}

}  // namespace vantiro::examples
