// The comments of a schema in the emitted header.

#include <gtest/gtest.h>

#include <string>

#include "compiler/file_generator.h"
#include "tests/compiler/schemas.h"

namespace vantiro {
namespace compiler {
namespace {

std::string Header(const std::string& body) {
  tests::Schemas schemas;
  schemas.Add(
      "commented.proto",
      "syntax = \"proto3\";\noption optimize_for = LITE_RUNTIME;\n" + body);
  const auto* const file = schemas.Import("commented.proto");
  return file == nullptr ? "" : FileGenerator(file).Header();
}

void ExpectIn(const std::string& header, const std::string& text) {
  EXPECT_NE(header.find(text), std::string::npos) << text << header;
}

TEST(DocComment, IsThatOfTheClassTheFieldTheEnumAndItsValues) {
  const std::string header = Header(R"(
      // How hot
      // it is.
      message Heat {
        // In kelvin.
        float kelvin = 1;
        int32 plain = 2;
        int32 rising = 3;  // Per second.
      }

      /* What it
       * feels like. */
      enum Feeling {
        // Below all others.
        COLD = 0;
        HOT = 1;
      }
  )");
  ExpectIn(header, "\n// How hot\n// it is.\nclass Heat final : ");
  ExpectIn(header, "\n\n  // In kelvin.\n  // float kelvin = 1;\n");
  ExpectIn(header, "\n\n  // int32 plain = 2;\n");
  ExpectIn(header, "\n\n  // Per second.\n  // int32 rising = 3;\n");
  ExpectIn(header, "\n// What it\n// feels like.\nenum Feeling : int {\n");
  ExpectIn(header, "\n  // Below all others.\n  COLD = 0,\n  HOT = 1,\n");
}

TEST(DocComment, DoesNotReachIntoTheCodeAfterIt) {
  const std::string header = Header(
      "// Ends in \\\\ \n//\n//\ttabbed  \n//tight\n"
      "message Heat {}\n");
  ExpectIn(header,
           "\n// Ends in\n//\n// tabbed\n// tight\nclass Heat final : ");
}

}  // namespace
}  // namespace compiler
}  // namespace vantiro
