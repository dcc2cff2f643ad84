#include "compiler/names.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "tests/compiler/protoc.h"
#include "tests/compiler/schemas.h"

namespace vantiro {
namespace tests {
namespace {

using google::protobuf::Descriptor;

// `header` is that of protoc's own classes.
void ExpectStockFieldNumbers(const Descriptor* message,
                             const std::string& header) {
  for (int i = 0; i < message->field_count(); ++i) {
    const std::string constant = compiler::FieldNumberName(message->field(i)) +
                                 " = " +
                                 std::to_string(message->field(i)->number());
    EXPECT_NE(header.find("\n    " + constant + ","), std::string::npos)
        << constant << " is not the name in protoc's own class of "
        << message->field(i)->full_name();
  }
  for (int i = 0; i < message->nested_type_count(); ++i) {
    ExpectStockFieldNumbers(message->nested_type(i), header);
  }
}

TEST(Names, FieldNumbersAreNamedAsInProtocsOwnClasses) {
  const std::string folder = MakeScratchFolder();
  std::filesystem::copy(VANTIRO_SCHEMA, folder);
  std::ofstream(folder + "/names.proto") << R"(
      syntax = "proto3";
      option optimize_for = LITE_RUNTIME;
      message Reading {
        int32 value = 1;
        int32 field_12 = 2;
        int32 metric3a = 3;
        int32 metric_3a_b4c = 4;
        int32 two__underscores_ = 5;
        int32 _first = 6;
      })";
  const std::vector<std::string> units = FilesIn(folder, ".proto");
  const ProtocRun stock = RunProtoc({folder}, units, "--cpp_out=");
  Schemas schemas(folder);
  for (const std::string& unit : units) {
    const auto* const file = schemas.Import(unit);
    ASSERT_NE(file, nullptr);
    const auto header = stock.files.find(compiler::Stem(file) + ".pb.h");
    ASSERT_NE(header, stock.files.end()) << unit;
    for (int i = 0; i < file->message_type_count(); ++i) {
      ExpectStockFieldNumbers(file->message_type(i), header->second);
    }
  }
  std::filesystem::remove_all(folder);
}

}  // namespace
}  // namespace tests
}  // namespace vantiro
