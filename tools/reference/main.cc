// Writes the schema reference: a front page and one page for each unit.

#include <fstream>
#include <iostream>
#include <iterator>
#include <string>

#include "tools/reference/links.h"
#include "tools/reference/page.h"
#include "tools/reference/search_index.h"
#include "tools/schema/schema.h"

namespace {

namespace reference = vantiro::reference;

bool Read(const std::string& path, std::string* content) {
  std::ifstream file(path, std::ios::binary);
  content->assign(std::istreambuf_iterator<char>(file), {});
  if (file) return true;
  std::cerr << "make_reference: cannot read " << path << "\n";
  return false;
}

bool Write(const std::string& path, const std::string& content) {
  std::ofstream file(path, std::ios::binary);
  file << content;
  file.close();
  if (file) return true;
  std::cerr << "make_reference: cannot write " << path << "\n";
  return false;
}

bool WritePages(const vantiro::tools::Schema& schema,
                const reference::PageParts& parts, const std::string& folder) {
  for (const auto* unit : schema.units()) {
    if (!Write(folder + "/" + reference::PageOf(unit),
               reference::UnitPage(schema, unit, parts))) {
      return false;
    }
  }
  return Write(folder + "/index.html", reference::FrontPage(schema, parts));
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 5) {
    std::cerr << "usage: make_reference PALETTE STYLE SCRIPT FOLDER\n";
    return 2;
  }
  const auto& schema = vantiro::tools::Schema::BuiltIn();
  reference::PageParts parts;
  std::string palette;
  if (!Read(argv[1], &palette) || !Read(argv[2], &parts.style) ||
      !Read(argv[3], &parts.script)) {
    return 1;
  }
  parts.style.insert(0, palette);
  parts.search_index = reference::SearchIndex(schema);
  return WritePages(schema, parts, argv[4]) ? 0 : 1;
}
