#include "compiler/template.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace vantiro {
namespace compiler {
namespace {

struct Case {
  Variables variables;
  std::string text;
  std::string wanted;
};

TEST(Template, IndentsAndSubstitutes) {
  for (const auto& [variables, text, wanted] : std::vector<Case>{
           // The least indented line need not be the first.
           {{}, "\n    public:\n  int a;\n", "  public:\nint a;\n"},
           {{}, "", ""},
           {{}, "\n    a\n\n  \n    b\n  ", "a\n\n\nb\n"},
           {{{"t", "int"}, {"x", "y"}},
            "$t$ $x$_ = $t$();",
            "int y_ = int();\n"},
           {{{"inline", ""}}, "  $inline$void f();\n", "void f();\n"},
           // Two variables are not a variable alone.
           {{{"a", "1"}, {"b", "2"}}, "$a$$b$", "12\n"},
           {{{"a", "b();\n\nif (c) {\n  d();\n}\n"}},
            "\n  {\n    $a$\n  }\n",
            "{\n  b();\n\n  if (c) {\n    d();\n  }\n}\n"},
           {{{"a", ""}}, "{\n  $a$\n}", "{\n}\n"},
           {{{"a", "$b$"}}, "$a$", "$b$\n"},
           {{{"a", "$b$"}}, "x $a$", "x $b$\n"}}) {
    EXPECT_EQ(Substitute(variables, text), wanted) << text;
  }
}

void SubstituteUncaught(const std::string& text) noexcept {
  Substitute({{"a", ""}}, text);
}

TEST(TemplateDeathTest, EndsTheProgramAtAVariableWithoutAValue) {
  EXPECT_DEATH(SubstituteUncaught("$b$"), "no value for .b.");
  EXPECT_DEATH(SubstituteUncaught("x $b$"), "Undefined variable: b");
}

}  // namespace
}  // namespace compiler
}  // namespace vantiro
