// Schema files as the runtime describes them.

#ifndef VANTIRO_TESTS_COMPILER_SCHEMAS_H_
#define VANTIRO_TESTS_COMPILER_SCHEMAS_H_

#include <google/protobuf/compiler/importer.h>
#include <google/protobuf/descriptor.h>

#include <map>
#include <string>
#include <vector>

namespace vantiro {
namespace tests {

// The files in `folder` whose names end so, by name and sorted.
std::vector<std::string> FilesIn(const std::string& folder,
                                 const std::string& ending);

// Schema files of a folder, and others that are given as text.
class Schemas {
 public:
  explicit Schemas(const std::string& folder = "");

  void Add(const std::string& name, const std::string& text);

  // The file with its places in the source. Fails the test and gives null if
  // it, or what it imports, is not a valid schema.
  const google::protobuf::FileDescriptor* Import(const std::string& name);

 private:
  class Errors : public google::protobuf::compiler::MultiFileErrorCollector {
   public:
    void AddError(const std::string& file, int line, int column,
                  const std::string& message) override;
  };

  class Tree : public google::protobuf::compiler::DiskSourceTree {
   public:
    google::protobuf::io::ZeroCopyInputStream* Open(
        const std::string& file) override;
    std::map<std::string, std::string> texts;
  };

  Tree tree_;
  Errors errors_;
  google::protobuf::compiler::Importer importer_;
};

}  // namespace tests
}  // namespace vantiro

#endif  // VANTIRO_TESTS_COMPILER_SCHEMAS_H_
