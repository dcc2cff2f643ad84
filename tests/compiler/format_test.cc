// clang-format leaves emitted code as it is, whatever the length of its names.

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

// What clang-format has to say about the code of `files`.
std::string ErrorsOfClangFormat(const std::vector<std::string>& folders,
                                const std::vector<std::string>& files) {
  const ProtocRun run = RunProtoc(folders, files);
  EXPECT_EQ(run.said, "");
  EXPECT_FALSE(run.files.empty());
  const std::string folder = MakeScratchFolder();
  std::string command = VANTIRO_CLANG_FORMAT
      " --style=file:" VANTIRO_STYLE " --dry-run --Werror --ferror-limit=3";
  for (const auto& [name, text] : run.files) {
    std::ofstream(folder + "/" + name) << text;
    command += " " + folder + "/" + name;
  }
  std::string errors = RunCommand(command).said;
  std::filesystem::remove_all(folder);
  return errors;
}

class Format : public testing::Test {
 protected:
  void SetUp() override {
    if (std::string(VANTIRO_CLANG_FORMAT).empty()) {
      GTEST_SKIP() << "clang-format 14 is not installed";
    }
  }
};

TEST_F(Format, OfTheUnitsIsThatOfClangFormat) {
  EXPECT_EQ(
      ErrorsOfClangFormat({VANTIRO_SCHEMA}, FilesIn(VANTIRO_SCHEMA, ".proto")),
      "");
}

TEST_F(Format, OfTheTestSchemasIsThatOfClangFormat) {
  EXPECT_EQ(ErrorsOfClangFormat({VANTIRO_TEST_SCHEMA},
                                FilesIn(VANTIRO_TEST_SCHEMA, ".proto")),
            "");
}

// A name of `size` letters and digits.
std::string Name(size_t size, char first, const std::string& rest) {
  std::string name(1, first);
  while (name.size() < size) name += rest;
  return name.substr(0, size);
}

// An enum and messages with comments and fields of every kind whose names have
// `size` letters.
std::string TypesWithNamesOf(size_t size) {
  const std::string number = std::to_string(size);
  const std::string type = Name(size, 'T', "ypeName") + number;
  const std::string kind = Name(size, 'K', "indName") + number;
  const std::string field = Name(size, 'f', "ield_name");
  const std::string value = Name(size, 'V', "ALUE_");
  std::string text = "enum " + kind + " { " + value + number + " = 0; }\n";
  text += "// Of " + field + " and " + value + " and others.\n";
  text += "message " + type + " {\n  message Nested { " + kind + " " + field +
          " = 1; }\n  enum Kind { N" + value + " = 0; }\n";
  int tag = 0;
  for (const std::string& field_type :
       {std::string("float"), std::string("uint32"), std::string("sint64"),
        std::string("bool"), std::string("string"), std::string("bytes"),
        std::string("repeated float"), std::string("repeated int32"), kind,
        "repeated " + kind, std::string("Nested"),
        std::string("repeated Nested"), std::string("Kind"), type,
        "repeated " + type}) {
    ++tag;
    text += "  // " + field + field + ", " + value + " and more.\n";
    text += "  " + field_type + " " + field + static_cast<char>('a' + tag) +
            " = " + std::to_string(10 * tag) +
            (size % 2 == 0 ? ";\n" : " [deprecated = true];\n");
  }
  return text + "}\n";
}

TEST_F(Format, OfNamesOfUpTo66LettersIsThatOfClangFormat) {
  const std::string folder = MakeScratchFolder();
  std::ofstream file(folder + "/lengths.proto");
  file << "syntax = \"proto3\";\npackage names.of_all.lengths;\n"
          "option optimize_for = LITE_RUNTIME;\n"
          "option cc_enable_arenas = true;\n";
  for (size_t size = 1; size <= 66; ++size) file << TypesWithNamesOf(size);
  file.close();
  EXPECT_EQ(ErrorsOfClangFormat({folder}, {"lengths.proto"}), "");
  std::filesystem::remove_all(folder);
}

}  // namespace
}  // namespace tests
}  // namespace vantiro
