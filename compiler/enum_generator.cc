#include "compiler/enum_generator.h"

#include <algorithm>

#include "compiler/names.h"
#include "compiler/template.h"

namespace vantiro {
namespace compiler {
namespace {

using google::protobuf::EnumDescriptor;
using google::protobuf::EnumValueDescriptor;

using Values = std::vector<const EnumValueDescriptor*>;

Values ValuesSorted(const EnumDescriptor* enum_type,
                    bool (*less)(const EnumValueDescriptor*,
                                 const EnumValueDescriptor*)) {
  Values values;
  for (int i = 0; i < enum_type->value_count(); ++i) {
    values.push_back(enum_type->value(i));
  }
  std::sort(values.begin(), values.end(), less);
  return values;
}

bool NameIsLess(const EnumValueDescriptor* a, const EnumValueDescriptor* b) {
  return a->name() < b->name();
}

bool NumberIsLess(const EnumValueDescriptor* a, const EnumValueDescriptor* b) {
  return a->number() < b->number();
}

}  // namespace

EnumGenerator::EnumGenerator(const EnumDescriptor* enum_type)
    : enum_type_(enum_type),
      by_name_(ValuesSorted(enum_type, NameIsLess)),
      by_number_(ValuesSorted(enum_type, NumberIsLess)),
      variables_({{"Enum", enum_type->name()},
                  {"QualifiedEnum", QualifiedName(enum_type)},
                  {"min", by_number_.front()->name()},
                  {"max", by_number_.back()->name()},
                  {"count", std::to_string(by_number_.size())}}) {}

bool EnumGenerator::IsDenseFromZero() const {
  return by_number_.front()->number() == 0 &&
         by_number_.back()->number() == static_cast<int>(by_number_.size()) - 1;
}

std::string EnumGenerator::ValidityTest() const {
  if (IsDenseFromZero()) {
    return "return static_cast<unsigned int>(value) < " +
           std::to_string(by_number_.size()) + ";\n";
  }
  std::string cases;
  for (const EnumValueDescriptor* value : by_number_) {
    cases += "case " + std::to_string(value->number()) + ":\n";
  }
  return Substitute({{"cases", cases}}, R"(
      switch (value) {
        $cases$
          return true;
        default:
          return false;
      }
  )");
}

std::string EnumGenerator::Names() const {
  std::string result;
  for (const EnumValueDescriptor* value : by_name_) {
    result += "\"" + value->name() + "\"\n";
  }
  result.back() = ';';
  return result + '\n';
}

std::string EnumGenerator::Entries() const {
  std::string result;
  size_t offset = 0;
  for (const EnumValueDescriptor* value : by_name_) {
    result += "{" + enum_type_->name() + "_names + " + std::to_string(offset) +
              ", " + std::to_string(value->name().size()) + ", " +
              std::to_string(value->number()) + "},\n";
    offset += value->name().size();
  }
  return result;
}

std::string EnumGenerator::EntriesByNumber() const {
  std::string result;
  for (const EnumValueDescriptor* value : by_number_) {
    const auto entry = std::find(by_name_.begin(), by_name_.end(), value);
    result += std::to_string(entry - by_name_.begin()) + ",  // " +
              value->name() + "\n";
  }
  return result;
}

std::string EnumGenerator::Declaration() const {
  std::string values;
  for (int i = 0; i < enum_type_->value_count(); ++i) {
    values += enum_type_->value(i)->name() + " = " +
              std::to_string(enum_type_->value(i)->number()) + ",\n";
  }
  return Substitute(Combine(variables_, {{"values", values}}), R"(
      enum $Enum$ : int {
        $values$
        $Enum$_INT_MIN_SENTINEL_DO_NOT_USE_ =
            ::std::numeric_limits<::int32_t>::min(),
        $Enum$_INT_MAX_SENTINEL_DO_NOT_USE_ =
            ::std::numeric_limits<::int32_t>::max()
      };
      // Whether `value` is a declared one.
      bool $Enum$_IsValid(int value);
      constexpr $Enum$ $Enum$_MIN = $min$;
      constexpr $Enum$ $Enum$_MAX = $max$;
      constexpr int $Enum$_ARRAYSIZE = $Enum$_MAX + 1;

      // The name of `value`, the empty string if it is not declared. Valid until
      // the runtime's shutdown.
      const ::std::string& $Enum$_Name($Enum$ value);
      template <typename T>
      inline const ::std::string& $Enum$_Name(T value) {
        static_assert(::std::is_same<T, $Enum$>::value ||
                          ::std::is_integral<T>::value,
                      "Incorrect type passed to function $Enum$_Name.");
        return $Enum$_Name(static_cast<$Enum$>(value));
      }
      // Stores the value named `name`, and gives true; or gives false and leaves
      // `*value` alone.
      bool $Enum$_Parse(const ::std::string& name, $Enum$* value);

  )") + "\n";
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
                           {"validity_test", ValidityTest()}}),
      R"(
      // $Enum$

      static const char $Enum$_names[] =
          $names$

      static constexpr internal::EnumEntry $Enum$_entries[] = {
          $entries$
      };

      static constexpr int $Enum$_entries_by_number[] = {
          $entries_by_number$
      };

      static internal::EnumName $Enum$_strings[$count$];

      static constexpr internal::EnumTables $Enum$_tables = {
          $Enum$_entries, $Enum$_entries_by_number, $count$, $Enum$_strings};

      bool $Enum$_IsValid(int value) {
        $validity_test$
      }

      const ::std::string& $Enum$_Name($Enum$ value) {
        static const bool names_are_built = internal::BuildEnumNames($Enum$_tables);
        static_cast<void>(names_are_built);
        return internal::FindEnumName($Enum$_tables, value);
      }

      bool $Enum$_Parse(const ::std::string& name, $Enum$* value) {
        int number;
        if (!internal::FindEnumValue($Enum$_tables, name, &number)) return false;
        *value = static_cast<$Enum$>(number);
        return true;
      }

  )");
}

}  // namespace compiler
}  // namespace vantiro
