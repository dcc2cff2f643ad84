// Hexadecimal text is read as people paste it, or refused with the place.

#include "tools/io/hex_text.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/bytes.h"
#include "tools/wire/escape.h"

namespace vantiro {
namespace tools {
namespace {

struct Case {
  const char* text;
  const char* result;
};

TEST(HexText, IsReadInAllNotations) {
  for (const Case& c : std::vector<Case>{
           {"", ""},
           {"08 05\t10:07,18\r\n01\n", "08 05 10 07 18 01"},
           {"08051007", "08 05 10 07"},
           {"0x08051007", "08 05 10 07"},
           {"0x08, 0X5 0xfF", "08 05 ff"},
           {"\\x08\\x05\\x10", "08 05 10"},
           {"\"\\x08\\x05\"\n  \"\\x10\";\n", "08 05 10"},
           {"static const uint8_t kRecord[] = {\n"
            "    0x08, 0x05,  // field_1\n    0x10, 0x7,\n};\n",
            "08 05 10 07"},
           // xxd
           {"00000000: 0805 1007 6265 6164 0801 0203 0405 0607  "
            "....bead........\n"
            "00000010: 6162                                     ab\n",
            "08 05 10 07 62 65 61 64 08 01 02 03 04 05 06 07 61 62"},
           {"000001f0: 61 62 63  abc\n000001f3: 64  d\n", "61 62 63 64"},
           // hexdump -C, with repeated lines
           {"00000000  00 00 00 00 00 00 00 00  00 00 00 00 00 00 00 00  "
            "|................|\n"
            "*\n"
            "00000030  ba db                                             "
            "|ab|\n"
            "00000032\n",
            "00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 "
            "00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 "
            "00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 ba db"},
           // od -tx1 and od -tx1z, whose offsets are octal
           {"0000000 08 05 10 07 08 05 10 07 08 05 10 07 08 05 10 07\n"
            "0000020 aa bb\n0000022\n",
            "08 05 10 07 08 05 10 07 08 05 10 07 08 05 10 07 aa bb"},
           {"0000000 61 62  >ab<\n0000002\n", "61 62"},
           {" 08 05 10 07 08 05 10 07\n 01\n", "08 05 10 07 08 05 10 07 01"},
           // logcat
           {"--------- beginning of main\n"
            "11-23 16:21:59.123  1234  1240 D Tag     : 08 05\n"
            "11-23 16:21:59.124  1234  1240 D Tag     : 10 07\n",
            "08 05 10 07"},
           {"D/Tag( 1234): 00000000: 0805 1007  ....\n"
            "D/Tag( 1234): 00000004: 1801       ..\n",
            "08 05 10 07 18 01"}}) {
    std::string result;
    try {
      result = tests::ToHex(ReadHexText(c.text));
    } catch (const HexError& error) {
      result = error.what();
    }
    EXPECT_EQ(result, c.result) << c.text;
  }
}

TEST(HexText, IsRefusedWithThePlaceIfThereIsDoubt) {
  for (const Case& c : std::vector<Case>{
           {"08 0g", "line 1, column 5: not a hexadecimal digit"},
           {"08\n10 0 07",
            "line 2, column 4: an odd number of hexadecimal "
            "digits"},
           {"0x08 record", "line 1, column 6: not a hexadecimal digit"},
           {"\"\\x08A\"",
            "line 1, column 6: an odd number of hexadecimal "
            "digits"},
           {"uint8_t r[] = {10, 20};",
            "line 1, column 16: a number in an array without 0x is decimal"},
           {"{0x08, 0x05", "line 1, column 1: no } for {"},
           {"uint32_t r[] = {0x00000508,\n 0x00000710};",
            "line 2, column 2: numbers of several bytes have no known order"},
           {"00000000: 0805  ..\n00000010: 1007  ..\n",
            "line 2, column 1: the offset does not follow from the lines "
            "before"},
           {"00000000: 0805  ..\n08 05",
            "line 2, column 1: expected an offset"},
           {"0000000 08 05\n*", "line 2, column 1: no offset after *"},
           {"0000000 08 05\n*\n0000003 01\n",
            "line 3, column 1: the offset does not follow from the lines "
            "before"}}) {
    std::string message;
    try {
      message = tests::ToHex(ReadHexText(c.text));
    } catch (const HexError& error) {
      message = error.what();
    }
    EXPECT_EQ(message, c.result) << c.text;
  }
}

TEST(Escape, LeavesNothingThatActsOnATerminal) {
  for (const Case& c : std::vector<Case>{
           {"plain \u00fc \U0001f600", "plain \u00fc \U0001f600"},
           {"\x1b[31m\t\x7f\u0085", "\\u001b[31m\\u0009\\u007f\\u0085"},
           {"a\u202eb\u202c\u2066c\u2069\u200ed\u061c",
            "a\\u202eb\\u202c\\u2066c\\u2069\\u200ed\\u061c"},
           {"a\u2028b\u2029\n", "a\\u2028b\\u2029\\u000a"},
           {"\xc3\x28\xff\x1b", "\\xc3(\\xff\\u001b"}}) {
    EXPECT_EQ(EscapeControls(c.text), c.result);
  }
  EXPECT_EQ(EscapeControlsInLines("a\n\x1b"), "a\n\\u001b");
}

}  // namespace
}  // namespace tools
}  // namespace vantiro
