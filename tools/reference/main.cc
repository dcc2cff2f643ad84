// Writes the schema reference: a front page and one page for each unit.

#include <google/protobuf/descriptor.pb.h>

#include <fstream>
#include <iostream>
#include <iterator>
#include <string>

#include "tools/reference/links.h"
#include "tools/reference/page.h"
#include "tools/reference/schema_set.h"
#include "tools/reference/search_index.h"

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

bool Load(const std::string& path, reference::SchemaSet* schema) {
  std::string bytes;
  if (!Read(path, &bytes)) return false;
  google::protobuf::FileDescriptorSet files;
  if (files.ParseFromString(bytes) && schema->Build(files)) return true;
  std::cerr << "make_reference: " << path << " is no whole descriptor set\n";
  return false;
}

bool WritePages(const reference::SchemaSet& schema,
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
  if (argc != 6) {
    std::cerr << "usage: make_reference DESCRIPTOR_SET PALETTE STYLE SCRIPT "
                 "FOLDER\n";
    return 2;
  }
  reference::SchemaSet schema;
  reference::PageParts parts;
  std::string palette;
  if (!Load(argv[1], &schema) || !Read(argv[2], &palette) ||
      !Read(argv[3], &parts.style) || !Read(argv[4], &parts.script)) {
    return 1;
  }
  parts.style.insert(0, palette);
  parts.search_index = reference::SearchIndex(schema);
  return WritePages(schema, parts, argv[5]) ? 0 : 1;
}
