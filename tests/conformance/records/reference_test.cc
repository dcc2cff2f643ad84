// The files that the library's classes are held to, read by the full runtime
// from the text of the schema, in a process without the library. So what these
// classes read and write byte for byte is what the text beside the bytes says.

#include <google/protobuf/compiler/importer.h>
#include <google/protobuf/dynamic_message.h>
#include <google/protobuf/text_format.h>
#include <gtest/gtest.h>

#include <memory>

#include "tests/conformance/records/record_files.h"
#include "tests/conformance/wire/cases.h"
#include "tests/support/bytes.h"

namespace vantiro {
namespace tests {
namespace {

using google::protobuf::Message;
using google::protobuf::TextFormat;
using google::protobuf::compiler::DiskSourceTree;
using google::protobuf::compiler::Importer;

class Errors : public google::protobuf::compiler::MultiFileErrorCollector {
  void AddError(const std::string& file, int line, int /*column*/,
                const std::string& error) override {
    ADD_FAILURE() << file << ":" << line + 1 << ": " << error;
  }
};

class Schema {
 public:
  Schema() {
    tree_.MapPath("", VANTIRO_SCHEMA);
    for (const auto& file :
         std::filesystem::directory_iterator(VANTIRO_SCHEMA)) {
      if (file.path().extension() == ".proto") {
        importer_.Import(file.path().filename());
      }
    }
  }

  std::unique_ptr<Message> Create(const std::string& type_name) {
    const auto* const type = importer_.pool()->FindMessageTypeByName(type_name);
    EXPECT_NE(type, nullptr) << type_name;
    return std::unique_ptr<Message>(factory_.GetPrototype(type)->New());
  }

 private:
  Errors errors_;
  DiskSourceTree tree_;
  Importer importer_{&tree_, &errors_};
  google::protobuf::DynamicMessageFactory factory_;
};

// `text` writes as `bytes`, and `bytes` read as `text`.
void ExpectSame(Schema* schema, const std::string& type_name,
                const std::string& text, const std::string& bytes) {
  const std::unique_ptr<Message> of_text = schema->Create(type_name);
  EXPECT_TRUE(TextFormat::ParseFromString(text, of_text.get())) << type_name;
  EXPECT_EQ(ToHex(of_text->SerializeAsString()), ToHex(bytes))
      << type_name << ": " << text;
  const std::unique_ptr<Message> of_bytes = schema->Create(type_name);
  EXPECT_TRUE(of_bytes->ParseFromString(bytes)) << type_name;
  EXPECT_EQ(of_bytes->DebugString(), of_text->DebugString()) << type_name;
}

TEST(Reference, RecordsHoldTheirText) {
  Schema schema;
  for (const std::string& record : RecordFiles()) {
    ExpectSame(&schema, record, ReadData("records/" + record + ".txtpb"),
               ReadData("records/" + record + ".bin"));
  }
}

TEST(Reference, EdgeCasesHoldTheirText) {
  Schema schema;
  int count = 0;
  for (const CaseGroup& group : ReadCases("edge_cases.tsv")) {
    for (const Case& edge : group.cases) {
      if (edge.holds.empty()) continue;
      ExpectSame(&schema, edge.type_name, edge.holds, FromHex(edge.output));
      ++count;
    }
  }
  EXPECT_GT(count, 200);
}

}  // namespace
}  // namespace tests
}  // namespace vantiro
