#include "compiler/enum_generator.h"

#include <algorithm>
#include <vector>

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

Values ByName(const EnumDescriptor* enum_type) {
  return ValuesSorted(enum_type, [](const EnumValueDescriptor* a,
                                    const EnumValueDescriptor* b) {
    return a->name() < b->name();
  });
}

Values ByNumber(const EnumDescriptor* enum_type) {
  return ValuesSorted(enum_type, [](const EnumValueDescriptor* a,
                                    const EnumValueDescriptor* b) {
    return a->number() < b->number();
  });
}

Holes EnumHoles(const EnumDescriptor* enum_type) {
  const Values by_number = ByNumber(enum_type);
  return {{"Enum", enum_type->name()},
          {"QualifiedEnum", QualifiedName(enum_type)},
          {"min", by_number.front()->name()},
          {"max", by_number.back()->name()},
          {"count", std::to_string(by_number.size())}};
}

bool IsDenseFromZero(const Values& by_number) {
  return by_number.front()->number() == 0 &&
         by_number.back()->number() == static_cast<int>(by_number.size()) - 1;
}

std::string ValidityTest(const EnumDescriptor* enum_type) {
  const Values by_number = ByNumber(enum_type);
  if (IsDenseFromZero(by_number)) {
    return "return static_cast<unsigned int>(value) < " +
           std::to_string(by_number.size()) + ";\n";
  }
  std::string cases;
  for (const EnumValueDescriptor* value : by_number) {
    cases += "case " + std::to_string(value->number()) + ":\n";
  }
  return Fill({{"cases", cases}}, R"(
      switch (value) {
        $cases$
          return true;
        default:
          return false;
      }
  )");
}

// All names laid end to end, and for each entry its place among them.
struct NameTable {
  std::string names;
  std::string entries;
};

NameTable MakeNameTable(const EnumDescriptor* enum_type) {
  NameTable table;
  size_t offset = 0;
  for (const EnumValueDescriptor* value : ByName(enum_type)) {
    const std::string size = std::to_string(value->name().size());
    table.names += "\"" + value->name() + "\"\n";
    table.entries += "{" + enum_type->name() + "_names + " +
                     std::to_string(offset) + ", " + size + ", " +
                     std::to_string(value->number()) + "},\n";
    offset += value->name().size();
  }
  table.names.back() = ';';
  table.names += '\n';
  return table;
}

std::string EntriesByNumber(const EnumDescriptor* enum_type) {
  const Values by_name = ByName(enum_type);
  std::string result;
  for (const EnumValueDescriptor* value : ByNumber(enum_type)) {
    const auto entry = std::find(by_name.begin(), by_name.end(), value);
    result += std::to_string(entry - by_name.begin()) + ",  // " +
              value->name() + "\n";
  }
  return result;
}

}  // namespace

std::string EnumDeclaration(const EnumDescriptor* enum_type) {
  std::string values;
  for (int i = 0; i < enum_type->value_count(); ++i) {
    values += enum_type->value(i)->name() + " = " +
              std::to_string(enum_type->value(i)->number()) + ",\n";
  }
  return Fill(With(EnumHoles(enum_type), {{"values", values}}), R"(
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

std::string EnumTrait(const EnumDescriptor* enum_type) {
  return Fill(EnumHoles(enum_type), R"(
      template <>
      struct is_proto_enum<$QualifiedEnum$> : ::std::true_type {};
  )");
}

std::string EnumDefinition(const EnumDescriptor* enum_type) {
  const NameTable table = MakeNameTable(enum_type);
  return Fill(With(EnumHoles(enum_type),
                   {{"names", table.names},
                    {"entries", table.entries},
                    {"entries_by_number", EntriesByNumber(enum_type)},
                    {"validity_test", ValidityTest(enum_type)}}),
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
