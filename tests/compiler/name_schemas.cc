#include "tests/compiler/name_schemas.h"

#include <cctype>
#include <set>

namespace vantiro {
namespace tests {
namespace {

// The first ones of names that differ in more than case and underscores: others
// are no names of fields of one message, or values of one enum.
std::vector<std::string> DistinctNames(const std::vector<std::string>& names) {
  std::vector<std::string> result;
  std::set<std::string> keys;
  for (const std::string& name : names) {
    std::string key;
    for (const char c : name) {
      if (c != '_') key += static_cast<char>(std::tolower(c));
    }
    if (keys.insert(key).second) result.push_back(name);
  }
  return result;
}

class Writer {
 public:
  Writer(const std::vector<std::string>& names, const IsWanted& is_wanted)
      : names_(names), is_wanted_(is_wanted) {}

  NameSchemas Write() {
    WritePackages();
    WriteMessages("message", "as_message.");
    WriteMessages("global_message", "");
    WriteNested();
    WriteEnums();
    WriteNestedEnums();
    WriteValues();
    WriteNestedValues();
    WriteFields();
    return std::move(schemas_);
  }

 private:
  void Open(const std::string& file) {
    file_ = file;
    line_ = 1;
    Line("syntax = \"proto3\";");
    Line("option optimize_for = LITE_RUNTIME;");
  }

  void Line(const std::string& text) {
    schemas_.files[file_] += text + "\n";
    ++line_;
  }

  // `package` ends in "." unless it is empty.
  void OpenInPackage(const std::string& file, const std::string& package) {
    Open(file);
    if (!package.empty()) {
      Line("package " + package.substr(0, package.size() - 1) + ";");
    }
  }

  // Every second use is of a repeated field.
  std::string Repeated() const { return number_ % 2 == 0 ? "" : "repeated "; }

  // Writes a line in which "%" is the name and "#" the number of the use; false
  // if it is not wanted.
  bool Use(const std::string& position, const std::string& scope,
           const std::string& name, const std::string& pattern) {
    const size_t column = pattern.find_first_not_of(' ') + 1;
    NameUse use = {
        position, name,
        file_ + ":" + std::to_string(line_) + ":" + std::to_string(column),
        scope + name};
    if (!is_wanted_(use)) return false;
    ++number_;
    std::string text;
    for (const char c : pattern) {
      text += c == '%'   ? name
              : c == '#' ? std::to_string(number_)
                         : std::string(1, c);
    }
    Line(text);
    schemas_.uses.push_back(std::move(use));
    return true;
  }

  void WritePackages() {
    for (const std::string outer : {"", "outer."}) {
      for (const std::string& name : names_) {
        Open(outer + "package_" + name + ".proto");
        const bool is_used = Use(outer.empty() ? "package" : "inner_package",
                                 outer, name, "package " + outer + "%;");
        if (is_used) {
          Line("message Record {}");
        } else {
          schemas_.files.erase(file_);
        }
      }
    }
  }

  void WriteMessages(const std::string& position, const std::string& package) {
    OpenInPackage(position + ".proto", package);
    Line("option cc_enable_arenas = true;");
    bool is_used = false;
    for (const std::string& name : names_) {
      is_used |= Use(
          position, package, name,
          "message % { " + Repeated() + "." + package + "% successor = 1; }");
    }
    if (!is_used) schemas_.files.erase(file_);
  }

  void WriteNested() {
    const std::string scope = "as_nested.Outer.";
    OpenInPackage("nested.proto", "as_nested.");
    Line("message Outer {");
    std::string fields;
    number_ = 0;
    for (const std::string& name : names_) {
      if (Use("nested", scope, name,
              "  message % { ." + scope + "% successor = 1; }")) {
        const std::string number = std::to_string(number_);
        fields += " " + Repeated() + "." + scope + name + " of_type_" + number +
                  " = " + number + ";";
      }
    }
    Line(fields + " int32 digit = 2047; string word = 2046; }");
  }

  void WriteEnums() {
    const std::string scope = "as_enum.";
    OpenInPackage("enum.proto", scope);
    std::string fields;
    number_ = 0;
    for (const std::string& name : names_) {
      if (Use("enum", scope, name, "enum % { FIRST_# = 0; SECOND_# = -#; }")) {
        const std::string number = std::to_string(number_);
        fields += " " + Repeated() + "." + scope + name + " of_type_" + number +
                  " = " + number + ";";
      }
    }
    Line("message OfEnums {" + fields + " }");
  }

  void WriteNestedEnums() {
    const std::string scope = "as_nested_enum.Outer.";
    OpenInPackage("nested_enum.proto", "as_nested_enum.");
    Line("message Outer {");
    std::string fields;
    number_ = 0;
    for (const std::string& name : names_) {
      if (Use("nested_enum", scope, name,
              "  enum % { FIRST_# = 0; SECOND_# = -#; }")) {
        const std::string number = std::to_string(number_);
        fields += " " + Repeated() + "." + scope + name + " of_type_" + number +
                  " = " + number + ";";
      }
    }
    Line(fields + " int32 digit = 2047; string word = 2046; }");
  }

  void WriteValues() {
    OpenInPackage("value.proto", "as_value.");
    Line("enum OfValues { OF_VALUES_FIRST = 0;");
    number_ = 0;
    for (const std::string& name : DistinctNames(names_)) {
      Use("value", "as_value.", name, "  % = #;");
    }
    Line("}");
  }

  void WriteNestedValues() {
    const std::string scope = "as_nested_value.Outer.";
    OpenInPackage("nested_value.proto", "as_nested_value.");
    Line("message Sub {}");
    Line("message Outer { enum Kind { KIND_FIRST = 0;");
    number_ = 0;
    for (const std::string& name : DistinctNames(names_)) {
      Use("nested_value", scope, name, "  % = #;");
    }
    Line("} Kind of_kind = 1; Sub of_sub = 2; repeated Sub of_subs = 3;");
    Line("int32 of_digit = 4; string of_word = 5; }");
  }

  void WriteFields() {
    OpenInPackage("as-field.v1.proto", "as_field.");
    Line("option cc_enable_arenas = true;");
    Line("message Sub {}");
    Line("enum Kind { KIND_NONE = 0; }");
    int count = 0;
    for (const std::string type :
         {"int32", "string", ".as_field.Sub", ".as_field.Kind",
          "repeated int32", "repeated .as_field.Sub"}) {
      const std::string message = "Record" + std::to_string(++count);
      Line("message " + message + " {");
      number_ = 0;
      for (const std::string& name : DistinctNames(names_)) {
        Use("field", "as_field." + message + ".", name,
            "  " + type + " % = #;");
      }
      Line("}");
    }
  }

  const std::vector<std::string>& names_;
  const IsWanted& is_wanted_;
  NameSchemas schemas_;
  std::string file_;
  int line_ = 1;
  int number_ = 0;
};

}  // namespace

NameSchemas MakeNameSchemas(const std::vector<std::string>& names,
                            const IsWanted& is_wanted) {
  return Writer(names, is_wanted).Write();
}

}  // namespace tests
}  // namespace vantiro
