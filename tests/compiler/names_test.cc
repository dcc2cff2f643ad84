#include "compiler/names.h"

#include <google/protobuf/compiler/code_generator.h>
#include <google/protobuf/compiler/cpp/generator.h>
#include <google/protobuf/io/zero_copy_stream_impl_lite.h>
#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "tests/compiler/schemas.h"

namespace vantiro {
namespace compiler {
namespace {

using google::protobuf::Descriptor;
using google::protobuf::FileDescriptor;
using tests::Schemas;

std::string Unit(const std::string& body) {
  return "syntax = \"proto3\"; option optimize_for = LITE_RUNTIME;" + body;
}

class Memory : public google::protobuf::compiler::GeneratorContext {
 public:
  google::protobuf::io::ZeroCopyOutputStream* Open(
      const std::string& name) override {
    return new google::protobuf::io::StringOutputStream(&files[name]);
  }
  std::map<std::string, std::string> files;
};

// The header of protoc's own classes.
std::string StockHeader(const FileDescriptor* file) {
  const google::protobuf::compiler::cpp::CppGenerator generator;
  Memory memory;
  std::string error;
  EXPECT_TRUE(generator.Generate(file, "", &memory, &error)) << error;
  return memory.files[Stem(file) + ".pb.h"];
}

void ExpectStockFieldNumbers(const Descriptor* message,
                             const std::string& stock_header) {
  for (int i = 0; i < message->field_count(); ++i) {
    const std::string constant = FieldNumberName(message->field(i)) + " = " +
                                 std::to_string(message->field(i)->number());
    EXPECT_NE(stock_header.find("\n    " + constant + ","), std::string::npos)
        << constant << " is not the name in protoc's own class of "
        << message->field(i)->full_name();
  }
  for (int i = 0; i < message->nested_type_count(); ++i) {
    ExpectStockFieldNumbers(message->nested_type(i), stock_header);
  }
}

TEST(Names, FieldNumbersAreNamedAsInProtocsOwnClasses) {
  Schemas schemas(VANTIRO_SCHEMA);
  schemas.Add("names.proto", Unit(R"(
      message Reading {
        int32 value = 1;
        int32 field_12 = 2;
        int32 metric3a = 3;
        int32 metric_3a_b4c = 4;
        int32 two__underscores_ = 5;
        int32 _first = 6;
      })"));
  std::vector<std::string> units = tests::FilesIn(VANTIRO_SCHEMA, ".proto");
  units.emplace_back("names.proto");
  for (const std::string& unit : units) {
    const FileDescriptor* const file = schemas.Import(unit);
    ASSERT_NE(file, nullptr);
    const std::string stock_header = StockHeader(file);
    for (int i = 0; i < file->message_type_count(); ++i) {
      ExpectStockFieldNumbers(file->message_type(i), stock_header);
    }
  }
}

TEST(Names, NestedMessagesAreCalledByTheirPathInTheFile) {
  Schemas schemas;
  const std::string body =
      "message Outer { message Inner { message Most {} } }";
  schemas.Add("my-unit.v2_a.proto", Unit("package a.b_c;" + body));
  schemas.Add("bare.proto", Unit(body));
  const FileDescriptor* const file = schemas.Import("my-unit.v2_a.proto");
  const FileDescriptor* const bare = schemas.Import("bare.proto");
  ASSERT_TRUE(file != nullptr && bare != nullptr);
  const auto most = [](const FileDescriptor* f) {
    return f->message_type(0)->nested_type(0)->nested_type(0);
  };
  EXPECT_EQ(ClassName(most(file)), "Outer_Inner_Most");
  EXPECT_EQ(QualifiedName(most(file)), "::a::b_c::Outer_Inner_Most");
  EXPECT_EQ(QualifiedName(most(bare)), "::Outer_Inner_Most");
  EXPECT_EQ(DefaultInstanceName(most(file)),
            "_Outer_Inner_Most_default_instance_");
  EXPECT_EQ(SccInfoName(most(file)),
            "scc_info_Outer_Inner_Most_my_2dunit_2ev2_5fa_2eproto");
}

TEST(Names, ArenasAreOffUnlessTheUnitAsksForThem) {
  Schemas schemas;
  schemas.Add("unset.proto", Unit(""));
  schemas.Add("on.proto", Unit("option cc_enable_arenas = true;"));
  schemas.Add("off.proto", Unit("option cc_enable_arenas = false;"));
  EXPECT_FALSE(HasArenas(schemas.Import("unset.proto")));
  EXPECT_TRUE(HasArenas(schemas.Import("on.proto")));
  EXPECT_FALSE(HasArenas(schemas.Import("off.proto")));
}

}  // namespace
}  // namespace compiler
}  // namespace vantiro
