#include "tests/compiler/schemas.h"

#include <google/protobuf/io/zero_copy_stream_impl_lite.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

namespace vantiro {
namespace tests {

namespace io = google::protobuf::io;

std::vector<std::string> FilesIn(const std::string& folder,
                                 const std::string& ending) {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    const std::string name = entry.path().filename().string();
    if (name.size() >= ending.size() &&
        name.compare(name.size() - ending.size(), ending.size(), ending) == 0) {
      names.push_back(name);
    }
  }
  std::sort(names.begin(), names.end());
  return names;
}

Schemas::Schemas(const std::string& folder) : importer_(&tree_, &errors_) {
  if (!folder.empty()) tree_.MapPath("", folder);
}

void Schemas::Add(const std::string& name, const std::string& text) {
  tree_.texts[name] = text;
}

const google::protobuf::FileDescriptor* Schemas::Import(
    const std::string& name) {
  const auto* const file = importer_.Import(name);
  EXPECT_NE(file, nullptr) << name;
  return file;
}

void Schemas::Errors::AddError(const std::string& file, int line, int column,
                               const std::string& message) {
  ADD_FAILURE() << file << ":" << line + 1 << ":" << column + 1 << ": "
                << message;
}

io::ZeroCopyInputStream* Schemas::Tree::Open(const std::string& file) {
  const auto found = texts.find(file);
  if (found == texts.end()) return DiskSourceTree::Open(file);
  return new io::ArrayInputStream(found->second.data(),
                                  static_cast<int>(found->second.size()));
}

}  // namespace tests
}  // namespace vantiro
