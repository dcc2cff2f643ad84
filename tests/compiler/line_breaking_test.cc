// What clang-format leaves alone, wherever it is broken; all else format_test
// tests.

#include "compiler/line_breaking.h"

#include <gtest/gtest.h>

#include <string>

namespace vantiro {
namespace compiler {
namespace {

TEST(LineBreaking, BreaksComments) {
  EXPECT_EQ(BreakLongLines(
                "  // A comment that goes on for longer than eighty columns "
                "has to be broken into two.\n"),
            "  // A comment that goes on for longer than eighty columns has to "
            "be broken into\n"
            "  // two.\n");
  const std::string word = "// " + std::string(100, 'x') + "\n";
  EXPECT_EQ(BreakLongLines(word), word);
}

TEST(LineBreaking, BreaksStringsAfterASignOrElseAtTheLimit) {
  EXPECT_EQ(
      BreakLongLines("  return \"a_package.another_one.OneOfTheMessages."
                     "AnotherMessage.TheMessageInside\";\n"),
      "  return \"a_package.another_one.OneOfTheMessages.AnotherMessage.\""
      "\n         \"TheMessageInside\";\n");
  EXPECT_EQ(BreakLongLines("  return \"" + std::string(70, 'x') + "\";\n"),
            "  return \"" + std::string(69, 'x') + "\"\n         \"x\";\n");
}

}  // namespace
}  // namespace compiler
}  // namespace vantiro
