// The shared library as a file: what it needs, what it runs at load, what it
// exports. The classes are not linked here; what they have to export is worked
// out from the schema. So it is for the test units, which have what no unit of
// the library has.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <iterator>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "tests/compiler/schemas.h"

namespace vantiro {
namespace tests {
namespace {

using google::protobuf::Descriptor;
using google::protobuf::EnumDescriptor;
using google::protobuf::FieldDescriptor;
using google::protobuf::FileDescriptor;
using Names = std::set<std::string>;

constexpr char kString[] =
    "std::__cxx11::basic_string<char, std::char_traits<char>, "
    "std::allocator<char> >";

// The lines that a tool says about a library, ours or another.
std::vector<std::string> Ask(const std::string& tool,
                             const std::string& library = VANTIRO_LIBRARY) {
  FILE* const pipe =
      popen(("LC_ALL=C " + tool + " '" + library + "'").c_str(), "r");
  std::string said;
  std::array<char, 4096> buffer;
  for (size_t n; (n = fread(buffer.data(), 1, buffer.size(), pipe)) > 0;) {
    said.append(buffer.data(), n);
  }
  EXPECT_EQ(pclose(pipe), 0) << tool;
  std::vector<std::string> lines;
  std::istringstream stream(said);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

// The values of the dynamic section's entries of that tag.
std::vector<std::string> Dynamic(const std::string& tag,
                                 const std::string& library = VANTIRO_LIBRARY) {
  const std::vector<std::string> lines = Ask(VANTIRO_READELF " -d -W", library);
  // In brackets behind words for people, or bare, with or without a blank
  // behind.
  const std::regex entry(R"(\()" + tag + R"(\) +(?:[^\[]*\[)?([^\]]*?)\]? *$)");
  std::vector<std::string> values;
  std::smatch match;
  for (const std::string& line : lines) {
    if (std::regex_search(line, match, entry)) values.push_back(match.str(1));
  }
  return values;
}

using Values = std::vector<std::string>;

TEST(Library, HasItsSonameAndBindsAllSymbolsAtLoad) {
  EXPECT_EQ(Dynamic("SONAME"), Values{"libvantiro.proto_message.protos.so"});
  EXPECT_EQ(Dynamic("FLAGS"), Values{"BIND_NOW"});
}

TEST(Library, NeedsTheLiteRuntimeAndTheStandardLibrariesOnly) {
  Values wanted = Dynamic("SONAME", VANTIRO_LITE_RUNTIME);
  for (const char* const name : {VANTIRO_STANDARD_LIBRARIES}) {
    wanted.push_back(name);
  }
  EXPECT_EQ(Dynamic("NEEDED"), wanted);
}

TEST(Library, IsMadeForItsMachine) {
  std::string header;
  for (const std::string& line : Ask(VANTIRO_READELF " -h -W")) header += line;
  for (const char* const part : {"ELF64", "little endian",
                                 "DYN (Shared object file)", VANTIRO_MACHINE}) {
    EXPECT_NE(header.find(part), std::string::npos) << part << "\n" << header;
  }
}

TEST(Library, RunsNothingAtLoadAndNothingAtUnload) {
  for (const char* const tag :
       {"PREINIT_ARRAY", "INIT", "INIT_ARRAY", "FINI", "FINI_ARRAY"}) {
    EXPECT_EQ(Dynamic(tag), Values{}) << tag;
  }
}

TEST(Library, HasNoTypeInformation) {
  for (const std::string& line : Ask(VANTIRO_NM " -D -C")) {
    EXPECT_EQ(line.find("typeinfo"), std::string::npos) << line;
  }
}

std::string Replace(std::string text, char from, const std::string& to) {
  for (size_t at = 0; (at = text.find(from, at)) != std::string::npos;) {
    text.replace(at, 1, to);
    at += to.size();
  }
  return text;
}

std::string Namespace(const FileDescriptor* file) {
  return Replace(file->package(), '.', "::") + "::";
}

// The name of a class or enum without its namespaces.
template <typename Type>
std::string Leaf(const Type* type) {
  const size_t package_size = type->file()->package().size();
  return Replace(type->full_name().substr(package_size + 1), '.', "_");
}

std::string Class(const Descriptor* message) {
  return Namespace(message->file()) + Leaf(message);
}

// `$` stands for the class with its namespaces, `@` for its name alone, `%` for
// the namespaces of the runtime.
constexpr const char* kOfEveryMessage[] = {
    "vtable for $",
    "$* %::Arena::CreateMaybeMessage<$>(%::Arena*)",
    "$::@()",
    "$::@($ const&)",
    "$::~@()",
    "$::default_instance()",
    "$::InitAsDefaultInstance()",
    "$::New() const",
    "$::New(%::Arena*) const",
    "$::GetTypeName[abi:cxx11]() const",
    "$::IsInitialized() const",
    "$::Clear()",
    "$::CopyFrom($ const&)",
    "$::MergeFrom($ const&)",
    "$::CheckTypeAndMergeFrom(%::MessageLite const&)",
    "$::InternalSwap($*)",
    "$::MergePartialFromCodedStream(%::io::CodedInputStream*)",
    "$::SerializeWithCachedSizes(%::io::CodedOutputStream*) const",
    "$::ByteSizeLong() const",
    "$::GetCachedSize() const",
    "$::SetCachedSize(int) const",
};
constexpr const char* kWithArenas[] = {
    "$::@(%::Arena*)",
    "$::GetArena() const",
    "$::GetMaybeArenaPointer() const",
    "$::ArenaDtor(void*)",
};

bool HasArenas(const FileDescriptor* file) {
  return file->options().has_cc_enable_arenas() &&
         file->options().cc_enable_arenas();
}

void AddField(const FieldDescriptor* field, Names* names) {
  const Descriptor* const type = field->message_type();
  if (type == nullptr) return;
  const std::string scope = Class(field->containing_type()) + "::";
  if (type->file() != field->file()) {
    names->insert(scope + "clear_" + field->name() + "()");
  }
  if (field->is_repeated()) return;
  names->insert(scope + "_Internal::" + field->name() + "(" +
                Class(field->containing_type()) + " const*)");
  if (HasArenas(field->file())) {
    names->insert(scope + "unsafe_arena_set_allocated_" + field->name() + "(" +
                  Class(type) + "*)");
  }
}

void AddEnum(const EnumDescriptor* enum_type, Names* names) {
  const std::string name = Namespace(enum_type->file()) + Leaf(enum_type);
  names->insert(name + "_IsValid(int)");
  names->insert(name + "_Name[abi:cxx11](" + name + ")");
  names->insert(name + "_Parse(" + kString + " const&, " + name + "*)");
}

void AddMessage(const Descriptor* message, Names* names) {
  const auto add = [&](const auto& patterns) {
    for (std::string name : patterns) {
      name = Replace(name, '%', "google::protobuf");
      name = Replace(Replace(name, '$', Class(message)), '@', Leaf(message));
      names->insert(name);
    }
  };
  add(kOfEveryMessage);
  if (HasArenas(message->file())) add(kWithArenas);
  names->insert(Namespace(message->file()) + "_" + Leaf(message) +
                "_default_instance_");
  names->insert(
      "scc_info_" + Leaf(message) + "_" +
      Replace(Replace(message->file()->name(), '_', "_5f"), '.', "_2e"));
  for (int i = 0; i < message->field_count(); ++i) {
    AddField(message->field(i), names);
  }
  for (int i = 0; i < message->enum_type_count(); ++i) {
    AddEnum(message->enum_type(i), names);
  }
  for (int i = 0; i < message->nested_type_count(); ++i) {
    AddMessage(message->nested_type(i), names);
  }
}

Names ExportsOf(const std::string& folder,
                const std::vector<std::string>& units) {
  Names names;
  Schemas schemas(folder);
  for (const std::string& unit : units) {
    const FileDescriptor* const file = schemas.Import(unit);
    for (int i = 0; i < file->enum_type_count(); ++i) {
      AddEnum(file->enum_type(i), &names);
    }
    for (int i = 0; i < file->message_type_count(); ++i) {
      AddMessage(file->message_type(i), &names);
    }
  }
  return names;
}

std::string Difference(const Names& a, const Names& b) {
  std::vector<std::string> names;
  std::set_difference(a.begin(), a.end(), b.begin(), b.end(),
                      std::back_inserter(names));
  std::string result;
  for (const std::string& name : names) result += name + "\n";
  return result;
}

// What a library defines, dynamic or not: lines of an address, a kind and a
// name.
Names SymbolsOf(const std::string& library, const std::string& option) {
  Names names;
  const std::string nm = VANTIRO_NM " -C --defined-only" + option;
  for (const std::string& line : Ask(nm, library)) {
    const size_t end_of_address = line.find(' ');
    if (end_of_address == 16) names.insert(line.substr(end_of_address + 3));
  }
  return names;
}

TEST(Library, ExportsWhatTheContractNamesAndNothingElse) {
  const Names exported = SymbolsOf(VANTIRO_LIBRARY, " -D");
  const Names wanted =
      ExportsOf(VANTIRO_SCHEMA, FilesIn(VANTIRO_SCHEMA, ".proto"));
  EXPECT_EQ(wanted.size(), 7228u);
  EXPECT_EQ(Difference(wanted, exported), "") << "is not exported";
  EXPECT_EQ(Difference(exported, wanted), "") << "should not be exported";
}

TEST(TestUnits, DefineWhatALibraryOfThemHasToExport) {
  std::istringstream stream(VANTIRO_TEST_UNITS);
  std::vector<std::string> units;
  for (std::string unit; stream >> unit;) units.push_back(unit + ".proto");
  const Names wanted = ExportsOf(VANTIRO_TEST_SCHEMA, units);
  EXPECT_GT(wanted.size(), 400u);
  EXPECT_EQ(Difference(wanted, SymbolsOf(VANTIRO_TEST_UNITS_LIBRARY, "")), "")
      << "is not defined";
}

}  // namespace
}  // namespace tests
}  // namespace vantiro
