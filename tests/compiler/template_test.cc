#include "compiler/template.h"

#include <gtest/gtest.h>

#include <string>

namespace vantiro {
namespace compiler {
namespace {

TEST(Template, DropsTheFirstLineBreakAndTheSharedIndentation) {
  EXPECT_EQ(Substitute({}, R"(
      if (a) {
        b();
      }
  )"),
            "if (a) {\n  b();\n}\n");
  // The least indented line need not be the first.
  EXPECT_EQ(Substitute({}, "\n    public:\n  int a;\n"), "  public:\nint a;\n");
  EXPECT_EQ(Substitute({}, ""), "");
}

TEST(Template, KeepsEmptyLinesInsideAndLeavesThemEmpty) {
  EXPECT_EQ(Substitute({}, "\n    a\n\n  \n    b\n  "), "a\n\n\nb\n");
}

TEST(Template, SubstitutesVariablesInsideALine) {
  EXPECT_EQ(Substitute({{"type", "int"}, {"name", "x"}},
                       "$type$ $name$_ = $type$();"),
            "int x_ = int();\n");
  EXPECT_EQ(Substitute({{"inline", ""}}, "  $inline$void f();\n"),
            "void f();\n");
  // Two variables are not a variable alone, even with nothing between them.
  EXPECT_EQ(Substitute({{"a", "1"}, {"b", "2"}}, "$a$$b$"), "12\n");
}

TEST(Template, IndentsEveryLineOfAVariableAloneOnItsLine) {
  EXPECT_EQ(Substitute({{"body", "a();\n\nif (b) {\n  c();\n}\n"}}, R"(
      void f() {
        $body$
      }
  )"),
            "void f() {\n  a();\n\n  if (b) {\n    c();\n  }\n}\n");
  EXPECT_EQ(Substitute({{"body", "a();"}}, "{\n  $body$\n}"), "{\n  a();\n}\n");
}

TEST(Template, LeavesOutTheLineOfAnEmptyVariable) {
  EXPECT_EQ(Substitute({{"body", ""}}, "{\n  $body$\n}"), "{\n}\n");
}

TEST(Template, DoesNotSubstituteInsideValues) {
  EXPECT_EQ(Substitute({{"a", "$b$"}}, "$a$"), "$b$\n");
  EXPECT_EQ(Substitute({{"a", "$b$"}}, "x $a$"), "x $b$\n");
}

void SubstituteUncaught(const std::string& text) noexcept {
  Substitute({{"a", ""}}, text);
}

TEST(TemplateDeathTest, EndsTheProgramAtAVariableWithoutAValue) {
  EXPECT_DEATH(SubstituteUncaught("$b$"), "no value for .b.");
  EXPECT_DEATH(SubstituteUncaught("x $b$"), "Undefined variable: b");
}

TEST(Template, CombineReplacesAndAdds) {
  const Variables variables =
      Combine({{"a", "1"}, {"b", "2"}}, {{"b", "3"}, {"c", "4"}});
  EXPECT_EQ(variables, (Variables{{"a", "1"}, {"b", "3"}, {"c", "4"}}));
}

}  // namespace
}  // namespace compiler
}  // namespace vantiro
