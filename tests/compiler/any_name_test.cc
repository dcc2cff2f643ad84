// Whatever the parts of a schema are called, its code compiles, or the plug-in
// says which name it cannot use, where and why.

#include <gtest/gtest.h>

#include <cctype>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <set>
#include <sstream>

#include "compiler/validator.h"
#include "tests/compiler/name_schemas.h"
#include "tests/compiler/protoc.h"
#include "tests/compiler/schemas.h"

namespace vantiro {
namespace tests {
namespace {

using Names = std::vector<std::string>;
using Lines = std::set<std::string>;

// What the plug-in says about `schemas`.
Lines Errors(const NameSchemas& schemas) {
  Lines errors;
  for (const auto& [name, text] : schemas.files) {
    Schemas importer;
    importer.Add(name, text);
    const auto* const file = importer.Import(name);
    if (file == nullptr) continue;
    compiler::ValidationErrors of_file;
    compiler::Validate(file, &of_file);
    errors.insert(of_file.lines().begin(), of_file.lines().end());
  }
  return errors;
}

std::string Joined(const Lines& lines) {
  std::string result;
  for (const std::string& line : lines) result += line + "\n";
  return result;
}

// What protoc says about `schemas`, and the compilers about the code. Each line
// of `commands` compiles sources.cc or headers.cc.
std::string CompilerOutput(const NameSchemas& schemas,
                           const std::string& commands) {
  const std::string folder = MakeScratchFolder();
  const auto write = [&folder](const std::string& name,
                               const std::string& text) {
    std::ofstream(folder + "/" + name) << text;
  };
  Names names;
  for (const auto& [name, text] : schemas.files) {
    write(name, text);
    names.push_back(name);
  }
  const ProtocRun run = RunProtoc({folder}, names);
  std::string headers;
  std::string sources;
  for (const auto& [name, text] : run.files) {
    write(name, text);
    (name.back() == 'h' ? headers : sources) += "#include \"" + name + "\"\n";
  }
  write("headers.cc", headers);
  write("sources.cc", sources);
  std::string output = run.said;
  std::istringstream lines(commands);
  for (std::string command; std::getline(lines, command);) {
    output += RunCommand("cd '" + folder + "' && " + command).said;
  }
  std::filesystem::remove_all(folder);
  return output;
}

// The names whose code does not compile, with what the compilers say.
std::string Culprits(const Names& names, const IsWanted& is_wanted,
                     const std::string& commands) {
  const std::string output =
      CompilerOutput(MakeNameSchemas(names, is_wanted), commands);
  if (output.empty()) return "";
  if (names.size() == 1) return names[0] + ":\n" + output.substr(0, 2000);
  const auto middle = names.begin() + static_cast<ptrdiff_t>(names.size() / 2);
  const std::string culprits =
      Culprits({names.begin(), middle}, is_wanted, commands) +
      Culprits({middle, names.end()}, is_wanted, commands);
  return culprits.empty() ? output : culprits;
}

// A line of the table: names that are refused in some positions.
struct Rule {
  std::string reason;
  Lines positions;
  Lines names;
};

Lines Words(const std::string& text) {
  std::istringstream stream(text);
  return {std::istream_iterator<std::string>(stream), {}};
}

std::vector<Rule> ReadTable() {
  std::vector<Rule> rules;
  std::ifstream file(VANTIRO_NAMES);
  for (std::string line; std::getline(file, line);) {
    if (line.empty() || line[0] == '#') continue;
    std::istringstream columns(line);
    std::string reason;
    std::string positions;
    std::string names;
    std::getline(columns, reason, '\t');
    std::getline(columns, positions, '\t');
    std::getline(columns, names);
    rules.push_back({reason, Words(positions), Words(names)});
  }
  return rules;
}

// The error that `rule` expects at `use`; empty if it expects none.
std::string ErrorAt(const NameUse& use, const Rule& rule) {
  if (rule.positions.count(use.position) == 0) return "";
  if (rule.names.count(use.name) == 0) return "";
  std::string name = use.name;
  if (use.position == "field") {
    for (char& c : name) c = static_cast<char>(std::tolower(c));
  }
  std::string reason = rule.reason;
  reason.replace(reason.find('%'), 1, name);
  return use.place + ": " + use.full_name + ": " + reason;
}

TEST(AnyName, OfTheTableIsRefusedWithItsPlaceOrCompiles) {
  const std::vector<Rule> rules = ReadTable();
  Lines sorted_names;
  for (const Rule& rule : rules) {
    sorted_names.insert(rule.names.begin(), rule.names.end());
  }
  const Names names(sorted_names.begin(), sorted_names.end());

  const NameSchemas all =
      MakeNameSchemas(names, [](const NameUse& /*use*/) { return true; });
  Lines expected;
  Lines refused;
  for (const NameUse& use : all.uses) {
    for (const Rule& rule : rules) {
      const std::string error = ErrorAt(use, rule);
      if (error.empty()) continue;
      expected.insert(error);
      refused.insert(use.position + " " + use.full_name);
    }
  }
  EXPECT_EQ(Joined(Errors(all)), Joined(expected));

  // Global names would collide with those of packages.
  for (const bool is_global : {false, true}) {
    const auto is_wanted = [&](const NameUse& use) {
      return (use.position == "global_message") == is_global &&
             refused.count(use.position + " " + use.full_name) == 0;
    };
    EXPECT_EQ(Culprits(names, is_wanted,
                       VANTIRO_COMPILE_SOURCES "\n" VANTIRO_COMPILE_HEADERS),
              "");
  }
}

TEST(AnyName, AtRandomCompiles) {
  const std::string letters =
      "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ";
  const std::string characters = letters + "0123456789_";
  std::mt19937 random(1);
  Lines names;
  while (names.size() < 500) {
    std::string name(1, letters[random() % letters.size()]);
    for (size_t more = random() % 10; more > 0; --more) {
      name += characters[random() % characters.size()];
    }
    names.insert(name);
  }
  const auto is_wanted = [](const NameUse& use) {
    return use.position != "global_message";
  };
  EXPECT_EQ(Culprits({names.begin(), names.end()}, is_wanted,
                     VANTIRO_COMPILE_SOURCES),
            "");
}

}  // namespace
}  // namespace tests
}  // namespace vantiro
