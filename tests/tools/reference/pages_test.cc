// The pages of the schema reference agree with the schema files.

#include <google/protobuf/descriptor.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <regex>
#include <set>
#include <string>
#include <vector>

#include "tests/compiler/schemas.h"

namespace {

namespace fs = std::filesystem;
using google::protobuf::Descriptor;
using google::protobuf::EnumDescriptor;

// A page's text, and its anchors and links.
struct Page {
  std::string text;
  std::multiset<std::string> anchors;
  std::vector<std::string> links;
};

std::vector<std::string> Values(const std::string& text,
                                const std::string& attribute) {
  const std::regex pattern("[\\s]" + attribute + "=\"([^\"]*)\"");
  std::vector<std::string> values;
  for (std::sregex_iterator it(text.begin(), text.end(), pattern), end;
       it != end; ++it) {
    values.push_back((*it)[1]);
  }
  return values;
}

const std::map<std::string, Page>& Pages() {
  static const auto* const kPages = [] {
    auto* pages = new std::map<std::string, Page>();
    for (const auto& entry : fs::directory_iterator(VANTIRO_PAGES)) {
      std::ifstream file(entry.path());
      Page& page = (*pages)[entry.path().filename().string()];
      page.text.assign(std::istreambuf_iterator<char>(file), {});
      page.links = Values(page.text, "href");
      for (const auto& id : Values(page.text, "id")) page.anchors.insert(id);
    }
    return pages;
  }();
  return *kPages;
}

void AddEnum(const EnumDescriptor* type, const std::string& scope,
             std::multiset<std::string>* anchors) {
  anchors->insert(scope + type->name());
  for (int i = 0; i < type->value_count(); ++i) {
    anchors->insert(scope + type->name() + "." + type->value(i)->name());
  }
}

void AddMessage(const Descriptor* message, const std::string& scope,
                std::multiset<std::string>* anchors) {
  const std::string name = scope + message->name();
  anchors->insert(name);
  for (int i = 0; i < message->field_count(); ++i) {
    anchors->insert(name + "." + message->field(i)->name());
  }
  for (int i = 0; i < message->enum_type_count(); ++i) {
    AddEnum(message->enum_type(i), name + ".", anchors);
  }
  for (int i = 0; i < message->nested_type_count(); ++i) {
    AddMessage(message->nested_type(i), name + ".", anchors);
  }
}

TEST(Pages, EveryDeclarationHasOneAnchor) {
  vantiro::tests::Schemas schemas(VANTIRO_SCHEMA);
  for (const auto& name : vantiro::tests::FilesIn(VANTIRO_SCHEMA, ".proto")) {
    const auto* const unit = schemas.Import(name);
    const std::string stem = fs::path(name).stem().string();
    ASSERT_EQ(Pages().count(stem + ".html"), 1U) << stem;
    std::multiset<std::string> wanted = {"contents", "content", "search",
                                         "results", "search-index"};
    for (int i = 0; i < unit->message_type_count(); ++i) {
      AddMessage(unit->message_type(i), "", &wanted);
    }
    for (int i = 0; i < unit->enum_type_count(); ++i) {
      AddEnum(unit->enum_type(i), "", &wanted);
    }
    EXPECT_EQ(Pages().at(stem + ".html").anchors, wanted) << stem;
  }
}

TEST(Pages, EveryLinkLeadsToAnAnchorOfAPage) {
  ASSERT_EQ(Pages().size(), 16U);
  for (const auto& [name, page] : Pages()) {
    EXPECT_GT(page.links.size(), 15U) << name;
    for (const std::string& link : page.links) {
      const size_t hash = link.find('#');
      const std::string file = hash == 0 ? name : link.substr(0, hash);
      const auto target = Pages().find(file);
      ASSERT_NE(target, Pages().end()) << name << " links to " << link;
      if (hash == std::string::npos) continue;
      EXPECT_EQ(target->second.anchors.count(link.substr(hash + 1)), 1U)
          << name << " links to " << link;
    }
  }
}

TEST(Pages, NeedNoOtherFile) {
  for (const auto& [name, page] : Pages()) {
    EXPECT_EQ(page.text.find("src="), std::string::npos) << name;
    EXPECT_EQ(page.text.find("url("), std::string::npos) << name;
    EXPECT_EQ(page.text.find("@import"), std::string::npos) << name;
    EXPECT_EQ(page.text.find("<link"), std::string::npos) << name;
  }
}

// The line of a field's table, without its markup.
std::string Line(const std::string& page, const std::string& anchor) {
  const std::string& text = Pages().at(page).text;
  const size_t begin = text.find("<tr id=\"" + anchor + "\">");
  if (begin == std::string::npos) return "no " + anchor;
  const std::string row = text.substr(begin, text.find("</tr>", begin) - begin);
  const std::string spaced =
      std::regex_replace(row, std::regex("</t[dh]>|<small>"), " ");
  return std::regex_replace(
      std::regex_replace(spaced, std::regex("<[^>]*>"), ""), std::regex(" +"),
      " ");
}

TEST(Pages, FieldsHaveNumberTypeAndTag) {
  EXPECT_EQ(
      Line("zABC_debug.html", "DebugExif.debug_data_frame_list"),
      "3 debug_data_frame_list repeated DebugDataFrame 1a length-delimited ");
  EXPECT_EQ(Line("zHAWB_debug.html", "ZHawbDebugStatistics.field_8"),
            "8 field_8 repeated uint32 packed 42 length-delimited ");
  EXPECT_EQ(Line("zHAWB_debug.html", "ZHawbDebugAmbientData.field_2"),
            "2 field_2 float 15 fixed32 ");
  // From the sixteenth on a tag takes two bytes.
  EXPECT_EQ(Line("zAF_debug.html", "ZAfFrameInput.field_25").substr(0, 30),
            "25 field_25 sint32 c8 01 varin");
}

TEST(Pages, RootsAreWhatNoOtherCarries) {
  const std::string& text = Pages().at("index.html").text;
  const std::regex card("<li class=\"card\">");
  EXPECT_EQ(std::distance(std::sregex_iterator(text.begin(), text.end(), card),
                          std::sregex_iterator()),
            16);
  const Page& focus = Pages().at("zAF_debug.html");
  const size_t root =
      focus.text.find(R"(<section class="type" id="DebugExif">)");
  ASSERT_NE(root, std::string::npos);
  EXPECT_NE(focus.text.find("106 types, 9 levels", root), std::string::npos);
}

}  // namespace
