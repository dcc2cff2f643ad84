#include "compiler/enum_generator.h"

#include <google/protobuf/descriptor.pb.h>

#include <algorithm>
#include <climits>
#include <vector>

#include "compiler/doc_comment.h"
#include "compiler/names.h"
#include "compiler/statement_breaker.h"
#include "compiler/template.h"
#include "compiler/type_name.h"

namespace vantiro {
namespace compiler {
namespace {

using google::protobuf::EnumDescriptor;
using google::protobuf::EnumValueDescriptor;

using ValueList = std::vector<const EnumValueDescriptor*>;

ValueList ValuesSorted(const EnumDescriptor* enum_type,
                       bool (*less)(const EnumValueDescriptor*,
                                    const EnumValueDescriptor*)) {
  ValueList values;
  for (int i = 0; i < enum_type->value_count(); ++i) {
    values.push_back(enum_type->value(i));
  }
  std::stable_sort(values.begin(), values.end(), less);
  return values;
}

bool NameIsLess(const EnumValueDescriptor* a, const EnumValueDescriptor* b) {
  return a->name() < b->name();
}

bool NumberIsLess(const EnumValueDescriptor* a, const EnumValueDescriptor* b) {
  return a->number() < b->number();
}

// Each number once, by the name that comes first in the schema.
ValueList NumbersSorted(const EnumDescriptor* enum_type) {
  ValueList values = ValuesSorted(enum_type, NumberIsLess);
  const auto is_alias = [](const auto* a, const auto* b) {
    return a->number() == b->number();
  };
  values.erase(std::unique(values.begin(), values.end(), is_alias),
               values.end());
  return values;
}

// An expression for a value. To use a deprecated name would be a warning.
std::string Constant(const EnumValueDescriptor* value) {
  return value->options().deprecated()
             ? "static_cast<" + QualifiedName(value->type()) + ">(" +
                   std::to_string(value->number()) + ")"
             : ValueName(value);
}

// The elements of a table, each with the name of the value that it is for: on
// the same line, or above where these lines would be too long.
std::string AddNames(const std::vector<std::string>& elements,
                     const ValueList& values) {
  constexpr size_t kIndentation = 6;
  size_t width = 0;
  size_t name_size = 0;
  for (size_t i = 0; i < elements.size(); ++i) {
    width = std::max(width, elements[i].size());
    name_size = std::max(name_size, values[i]->name().size());
  }
  const bool is_long = kIndentation + width + 5 + name_size > kColumnLimit;
  std::string result;
  for (size_t i = 0; i < elements.size(); ++i) {
    const std::string comment = "// " + values[i]->name() + "\n";
    const std::string space(width - elements[i].size() + 2, ' ');
    result +=
        is_long ? comment + elements[i] + "\n" : elements[i] + space + comment;
  }
  return result;
}

}  // namespace

EnumGenerator::EnumGenerator(const EnumDescriptor* enum_type)
    : enum_type_(enum_type),
      by_name_(ValuesSorted(enum_type, NameIsLess)),
      by_number_(NumbersSorted(enum_type)),
      variables_({{"Enum", ClassName(enum_type)},
                  {"SafeEnum", SafeName(enum_type)},
                  {"name", enum_type->name()},
                  {"prefix", ValuePrefix(enum_type)},
                  {"QualifiedEnum", QualifiedName(enum_type)},
                  {"internal", InternalNamespace(enum_type->file())},
                  {"min", Constant(by_number_.front())},
                  {"max", Constant(by_number_.back())},
                  {"count", std::to_string(by_number_.size())}}) {}

bool EnumGenerator::IsDenseFromZero() const {
  return by_number_.front()->number() == 0 &&
         by_number_.back()->number() == static_cast<int>(by_number_.size()) - 1;
}

std::string EnumGenerator::ValidityTest() const {
  if (IsDenseFromZero()) {
    return Substitute(variables_, R"(
      bool $Enum$_IsValid(int value) { return static_cast<unsigned int>(value) < $count$; }
    )");
  }
  std::string cases;
  for (const EnumValueDescriptor* value : by_number_) {
    cases += "case " + std::to_string(value->number()) + ":\n";
  }
  return Substitute(Combine(variables_, {{"cases", cases}}), R"(
      bool $Enum$_IsValid(int value) {
        switch (value) {
          $cases$
            return true;
          default:
            return false;
        }
      }
  )");
}

std::string EnumGenerator::Names() const {
  std::string result = "static constexpr char names[] =";
  for (const EnumValueDescriptor* value : by_name_) {
    result +=
        (by_name_.size() == 1 ? " \"" : "\n    \"") + value->name() + "\"";
  }
  return result + ";\n";
}

std::string EnumGenerator::Entries() const {
  std::vector<std::string> entries;
  size_t offset = 0;
  for (const EnumValueDescriptor* value : by_name_) {
    entries.push_back("{names + " + std::to_string(offset) + ", " +
                      std::to_string(value->name().size()) + ", " +
                      std::to_string(value->number()) + "},");
    offset += value->name().size();
  }
  return AddNames(entries, by_name_);
}

std::string EnumGenerator::EntriesByNumber() const {
  std::vector<std::string> indices;
  for (const EnumValueDescriptor* value : by_number_) {
    const auto entry = std::find(by_name_.begin(), by_name_.end(), value);
    indices.push_back(std::to_string(entry - by_name_.begin()) + ",");
  }
  return AddNames(indices, by_number_);
}

std::string EnumGenerator::Tables() const {
  const size_t alias_count = by_name_.size() - by_number_.size();
  return Substitute(
      Combine(variables_, {{"aliases", std::to_string(alias_count)}}),
      alias_count == 0 ? R"(
      static const $internal$::EnumTables tables = {entries, by_number, $count$, strings};
  )"
                       : R"(
      static const $internal$::EnumTables tables = {
          entries, by_number, $count$, strings, $aliases$,
      };
  )");
}

std::string EnumGenerator::Values() const {
  std::string result;
  for (int i = 0; i < enum_type_->value_count(); ++i) {
    const EnumValueDescriptor* value = enum_type_->value(i);
    result += DocComment(value) + ValueName(value) +
              (value->options().deprecated() ? " [[deprecated]] = " : " = ") +
              std::to_string(value->number()) + ",\n";
  }
  return result;
}

// A maximum of 2^31 - 1 leaves no number for the size.
bool EnumGenerator::HasArraySize() const {
  return by_number_.back()->number() != INT_MAX;
}

std::string EnumGenerator::Declaration() const {
  const std::string array_size =
      !HasArraySize() ? "" : Substitute(variables_, R"(
      constexpr int $prefix$$name$_ARRAYSIZE = $prefix$$name$_MAX + 1;
  )");
  return Substitute(Combine(variables_, {{"comment", DocComment(enum_type_)},
                                         {"values", Values()},
                                         {"array_size", array_size}}),
                    R"(
      $comment$
      enum $Enum$ : int {
        $values$
        $prefix$$Enum$_INT_MIN_SENTINEL_DO_NOT_USE_ = ::std::numeric_limits<::int32_t>::min(),
        $prefix$$Enum$_INT_MAX_SENTINEL_DO_NOT_USE_ = ::std::numeric_limits<::int32_t>::max(),
      };
      // Whether `value` is declared.
      bool $Enum$_IsValid(int value);
      constexpr $Enum$ $prefix$$name$_MIN = $min$;
      constexpr $Enum$ $prefix$$name$_MAX = $max$;
      $array_size$

      // The name of `value`, empty if it is not declared. Valid until the runtime's
      // shutdown.
      const ::std::string& $Enum$_Name($Enum$ value);
      template <typename T>
      const ::std::string& $Enum$_Name(T value) {
        return $Enum$_Name(::vantiro::internal::ToEnum<$SafeEnum$>(value));
      }
      // Stores the value of that name and returns true, or returns false.
      bool $Enum$_Parse(const ::std::string& name, $SafeEnum$* value);

  )");
}

std::string EnumGenerator::MembersOfClass() const {
  const std::string type = TypeName(enum_type_);
  const Variables variables =
      Combine(variables_, {{"Type", type},
                           {"Nested", NestedName(enum_type_)},
                           {"SafeNested", SafeNestedName(enum_type_)}});
  std::string values;
  for (int i = 0; i < enum_type_->value_count(); ++i) {
    const EnumValueDescriptor* value = enum_type_->value(i);
    const bool is_deprecated = value->options().deprecated();
    values += Substitute(
        Combine(variables,
                {{"deprecated", is_deprecated ? "[[deprecated]] " : ""},
                 {"Value", NestedName(value)},
                 {"constant", is_deprecated ? Constant(value)
                                            : type + "_" + NestedName(value)}}),
        R"(
      $deprecated$static constexpr $Nested$ $Value$ = $constant$;
  )");
  }
  const std::string array_size =
      !HasArraySize() ? "" : Substitute(variables, R"(
      static constexpr int $name$_ARRAYSIZE = $Type$_$name$_ARRAYSIZE;
  )");
  return Substitute(
      Combine(variables, {{"values", values}, {"array_size", array_size}}), R"(

      using $Nested$ = $Type$;
      $values$
      static bool $name$_IsValid(int value) { return $Type$_IsValid(value); }
      static constexpr $Nested$ $name$_MIN = $Type$_$name$_MIN;
      static constexpr $Nested$ $name$_MAX = $Type$_$name$_MAX;
      $array_size$
      template <typename T>
      static const ::std::string& $name$_Name(T value) {
        return $Type$_Name(value);
      }
      static bool $name$_Parse(const ::std::string& name, $SafeNested$* value) { return $Type$_Parse(name, value); }
  )");
}

std::string EnumGenerator::Trait() const {
  return Substitute(variables_, R"(
      template <>
      struct is_proto_enum<$QualifiedEnum$> : ::std::true_type {};
  )");
}

std::string EnumGenerator::Definition() const {
  return Substitute(
      Combine(variables_, {{"names", Names()},
                           {"entries", Entries()},
                           {"entries_by_number", EntriesByNumber()},
                           {"tables", Tables()},
                           {"validity_test", ValidityTest()}}),
      R"(
      // $Enum$

      static const $internal$::EnumTables& $Enum$_tables() {
        $names$
        static constexpr $internal$::EnumEntry entries[] = {
            $entries$
        };
        static constexpr int by_number[] = {
            $entries_by_number$
        };
        static $internal$::EnumName strings[$count$];
        $tables$
        return tables;
      }

      $validity_test$

      const ::std::string& $Enum$_Name($Enum$ value) {
        static const bool has_names = $internal$::BuildEnumNames($Enum$_tables());
        static_cast<void>(has_names);
        return $internal$::FindEnumName($Enum$_tables(), value);
      }

      bool $Enum$_Parse(const ::std::string& name, $SafeEnum$* value) { return $internal$::ParseEnum($Enum$_tables(), name, value); }

  )");
}

}  // namespace compiler
}  // namespace vantiro
