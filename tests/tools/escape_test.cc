#include "tools/wire/escape.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace vantiro {
namespace tools {
namespace {

TEST(Escape, LeavesNothingThatActsOnATerminal) {
  for (const auto& [text, escaped] :
       std::vector<std::pair<std::string, std::string>>{
           {"plain \u00fc \U0001f600", "plain \u00fc \U0001f600"},
           {"\x1b[31m\t\x7f\u0085", "\\u001b[31m\\u0009\\u007f\\u0085"},
           {"a\u202eb\u202c\u2066c\u2069\u200ed\u061c",
            "a\\u202eb\\u202c\\u2066c\\u2069\\u200ed\\u061c"},
           {"a\u2028b\u2029\n", "a\\u2028b\\u2029\\u000a"},
           {"\xc3\x28\xff\x1b", "\\xc3(\\xff\\u001b"}}) {
    EXPECT_EQ(EscapeControls(text), escaped);
  }
  EXPECT_EQ(EscapeControlsInLines("a\n\x1b"), "a\n\\u001b");
}

}  // namespace
}  // namespace tools
}  // namespace vantiro
