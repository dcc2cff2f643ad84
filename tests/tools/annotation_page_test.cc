// The page shows every byte once and every field, and links the two.

#include "tools/page/annotation_page.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <map>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

#include "tests/support/bytes.h"
#include "tools/wire/record_tree.h"

namespace vantiro {
namespace tools {
namespace {

// A link of the page: a line of a field, or some bytes.
struct Link {
  std::string id;
  std::string target;
  std::string part;
  size_t begin = 0;
  size_t end = 0;
  std::string text;
};

struct Page {
  std::string html;
  // The lines in the tree of fields, by their id.
  std::map<std::string, Link> lines;
  std::vector<Link> bytes;
};

std::string Attribute(const std::string& tag, const std::string& name) {
  const std::regex pattern(" " + name + "=\"([^\"]*)\"");
  std::smatch match;
  return std::regex_search(tag, match, pattern) ? match[1].str() : "";
}

std::vector<Link> LinksIn(const std::string& html) {
  static const std::regex pattern(
      "<(?:a|summary)( [^>]*)>(.*?)</(?:a|summary)>");
  std::vector<Link> links;
  for (std::sregex_iterator it(html.begin(), html.end(), pattern), end;
       it != end; ++it) {
    const std::string tag = (*it)[1];
    const std::string text =
        std::regex_replace((*it)[2].str(), std::regex("<[^>]*>"), "");
    links.push_back({Attribute(tag, "id"), Attribute(tag, "href"),
                     Attribute(tag, "class"),
                     std::stoul(Attribute(tag, "data-begin")),
                     std::stoul(Attribute(tag, "data-end")), text});
  }
  return links;
}

Page PageOf(const std::string& type, const std::string& bytes) {
  const RecordTree tree =
      ReadRecord(Schema::BuiltIn().FindMessage(type), bytes);
  std::ostringstream out;
  WriteAnnotationPage(tree, "a <title> & more", &out);
  Page page;
  page.html = out.str();
  const size_t fields = page.html.find("<section id=\"fields\"");
  const size_t shown_bytes = page.html.find("<section id=\"bytes\"");
  for (const Link& line :
       LinksIn(page.html.substr(fields, shown_bytes - fields))) {
    EXPECT_TRUE(page.lines.emplace(line.id, line).second) << line.id;
  }
  page.bytes = LinksIn(page.html.substr(shown_bytes));
  return page;
}

// The links to bytes, in order, are all of the bytes; each belongs to a line of
// the tree that has these bytes, and the line leads to the first of them.
void ExpectAllBytesOnce(const std::string& type, const std::string& bytes) {
  SCOPED_TRACE(type + "\n  bytes: " + tests::ToHex(bytes));
  const Page page = PageOf(type, bytes);
  std::string shown;
  size_t next = 0;
  std::map<std::string, std::string> first_targets;
  for (const Link& link : page.bytes) {
    EXPECT_EQ(link.begin, next);
    next = link.end;
    shown += (shown.empty() ? "" : " ") + link.text;
    const auto line = page.lines.find(link.target.substr(1));
    ASSERT_NE(line, page.lines.end()) << link.target;
    EXPECT_LE(line->second.begin, link.begin);
    EXPECT_GE(line->second.end, link.end);
    if (!link.id.empty()) {
      EXPECT_TRUE(first_targets.emplace('#' + link.id, link.target).second);
    }
  }
  EXPECT_EQ(shown, tests::ToHex(bytes));
  for (const auto& [id, line] : page.lines) {
    if (line.target.empty()) continue;
    const auto bytes_link = first_targets.find(line.target);
    ASSERT_NE(bytes_link, first_targets.end()) << line.target;
    EXPECT_EQ(bytes_link->second, '#' + id);
  }
}

TEST(AnnotationPage, ShowsEveryByteOfRecordsAndOfTheirBeginnings) {
  for (const Descriptor* const root : Schema::BuiltIn().roots()) {
    const std::string bytes =
        tests::ReadData("records/" + root->full_name() + ".bin");
    const std::string start = bytes.substr(0, 300);
    for (const size_t size : {start.size(), start.size() / 2, size_t{7}}) {
      ExpectAllBytesOnce(root->full_name(), start.substr(0, size));
    }
  }
  // Groups, further runs, an empty record, and faults with and without bytes
  // after them.
  for (const char* const hex :
       {"7b 0b 08 05 0c 7c 08 05", "20 01 22 02 20 03 22 03 05 ac 02 22 00", "",
        "22 03 05 ff", "08 05 10", "08", "7b 08 01"}) {
    ExpectAllBytesOnce("ZAfFrameInputSmartRoi", tests::FromHex(hex));
  }
}

TEST(AnnotationPage, ShowsValuesAndFlagsAndEscapesThem) {
  const Page page = PageOf(
      "ZHawbDebugCameraInformation",
      tests::FromHex("0a 05 3c 62 3e 26 22 10 85 00 42 02 00 ff 7a 01 41"));
  ASSERT_EQ(page.lines.size(), 4U);
  EXPECT_EQ(page.lines.at("f1").text,
            "00000000 sensor_name &quot;&lt;b&gt;&amp;\\&quot;&quot;");
  EXPECT_EQ(page.lines.at("f2").text, "00000007 field_2 5 overlong value");
  EXPECT_EQ(page.lines.at("f3").text, "0000000a field_8 00ff");
  EXPECT_EQ(page.lines.at("f4").text, "0000000e field 15 41 unknown field");
  std::string parts;
  for (const Link& link : page.bytes) parts += link.part + ' ';
  EXPECT_EQ(parts,
            "tag length value tag value tag length value unknown length "
            "unknown ");
  EXPECT_NE(page.html.find("<h1>a &lt;title&gt; &amp; more</h1>"),
            std::string::npos);
  EXPECT_NE(page.html.find("ZHawbDebugCameraInformation, 17 bytes"),
            std::string::npos);
}

TEST(AnnotationPage, ShowsElementsOfPackedRunsWithTheirIndex) {
  const Page page =
      PageOf("FlickerInfo", tests::FromHex("1a 02 01 02 1a 01 03"));
  ASSERT_EQ(page.lines.size(), 5U);
  EXPECT_EQ(page.lines.at("f1").text, "00000000 field_3 2 elements in 2 bytes");
  EXPECT_EQ(page.lines.at("f3").text, "00000003 [1] 1");
  EXPECT_EQ(page.lines.at("f4").text,
            "00000004 field_3 1 element in 1 byte further packed run");
  EXPECT_EQ(page.lines.at("f5").text, "00000006 [2] -2");
}

TEST(AnnotationPage, ShowsTheFaultInTheTreeAndInTheHead) {
  const Page page =
      PageOf("FaceRoiType", tests::FromHex("08 05 12 03 0d 00 00"));
  const std::string fault =
      "offset 0x5 (5), in region_dimension_list[0].field_1: float needs 4 "
      "bytes, 2 left";
  EXPECT_NE(page.html.find("<p class=\"fault\">" + fault), std::string::npos);
  EXPECT_EQ(page.lines.at("f3").text, "00000004 not readable " + fault);
  EXPECT_EQ(page.bytes.back().part, "unread");
  EXPECT_EQ(page.bytes.back().text, "0d 00 00");
}

}  // namespace
}  // namespace tools
}  // namespace vantiro
