#include "compiler/template.h"

#include <gtest/gtest.h>

#include <string>

namespace vantiro {
namespace compiler {
namespace {

TEST(Template, DropsTheFirstLineBreakAndTheSharedIndentation) {
  EXPECT_EQ(Fill({}, R"(
      if (a) {
        b();
      }
  )"),
            "if (a) {\n  b();\n}\n");
  // The least indented line need not be the first.
  EXPECT_EQ(Fill({}, "\n    public:\n  int a;\n"), "  public:\nint a;\n");
  EXPECT_EQ(Fill({}, ""), "");
}

TEST(Template, KeepsEmptyLinesInsideAndLeavesThemEmpty) {
  EXPECT_EQ(Fill({}, "\n    a\n\n  \n    b\n  "), "a\n\n\nb\n");
}

TEST(Template, FillsHolesInsideALine) {
  EXPECT_EQ(
      Fill({{"type", "int"}, {"name", "x"}}, "$type$ $name$_ = $type$();"),
      "int x_ = int();\n");
  EXPECT_EQ(Fill({{"inline", ""}}, "  $inline$void f();\n"), "void f();\n");
  // Two holes are no lone hole, even with nothing between them.
  EXPECT_EQ(Fill({{"a", "1"}, {"b", "2"}}, "$a$$b$"), "12\n");
}

TEST(Template, IndentsEveryLineOfALoneHole) {
  EXPECT_EQ(Fill({{"body", "a();\n\nif (b) {\n  c();\n}\n"}}, R"(
      void f() {
        $body$
      }
  )"),
            "void f() {\n  a();\n\n  if (b) {\n    c();\n  }\n}\n");
  EXPECT_EQ(Fill({{"body", "a();"}}, "{\n  $body$\n}"), "{\n  a();\n}\n");
}

TEST(Template, TakesTheLineOfAnEmptyLoneHoleAway) {
  EXPECT_EQ(Fill({{"body", ""}}, "{\n  $body$\n}"), "{\n}\n");
}

TEST(Template, DoesNotFillWhatWasFilledIn) {
  EXPECT_EQ(Fill({{"a", "$b$"}}, "$a$"), "$b$\n");
  EXPECT_EQ(Fill({{"a", "$b$"}}, "x $a$"), "x $b$\n");
}

void FillUncaught(const std::string& text) noexcept { Fill({{"a", ""}}, text); }

TEST(TemplateDeathTest, EndsTheProgramAtAHoleWithoutAFilling) {
  EXPECT_DEATH(FillUncaught("$b$"), "no filling for .b.");
  EXPECT_DEATH(FillUncaught("x $b$"), "Undefined variable: b");
}

TEST(Template, WithReplacesAndAdds) {
  const Holes holes = With({{"a", "1"}, {"b", "2"}}, {{"b", "3"}, {"c", "4"}});
  EXPECT_EQ(holes, (Holes{{"a", "1"}, {"b", "3"}, {"c", "4"}}));
}

}  // namespace
}  // namespace compiler
}  // namespace vantiro
