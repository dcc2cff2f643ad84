#include "compiler/fields/scalar.h"

namespace vantiro {
namespace compiler {

ScalarFieldGenerator::ScalarFieldGenerator(
    const google::protobuf::FieldDescriptor* field, const std::string& type,
    const std::string& stored_type)
    : FieldGenerator(field) {
  AddVariables({{"type", type}, {"stored_type", stored_type}});
}

std::string ScalarFieldGenerator::Member() const {
  return Substitute(variables(), R"(
      $stored_type$ $name$;
  )");
}

std::string ScalarFieldGenerator::AccessorDeclarations() const {
  return Substitute(variables(), R"(
      // $declaration$
      void clear_$name$();
      $type$ $name$() const;
      void set_$name$($type$ value);
  )");
}

std::string ScalarFieldGenerator::InlineAccessorDefinitions() const {
  return Substitute(variables(), R"(
      inline void $Class$::clear_$name$() { scalars_.$name$ = {}; }
      inline $type$ $Class$::$name$() const {
        return static_cast<$type$>(scalars_.$name$);
      }
      inline void $Class$::set_$name$($type$ value) { scalars_.$name$ = value; }
  )");
}

std::string ScalarFieldGenerator::Merge() const {
  return Substitute(
      Combine(variables(), {{"is_non_zero", IsNonZero("from.scalars_." +
                                                      descriptor()->name())}}),
      R"(
      if ($is_non_zero$) scalars_.$name$ = from.scalars_.$name$;
  )");
}

std::string ScalarFieldGenerator::ByteSize() const {
  return Substitute(
      Combine(variables(),
              {{"is_non_zero", IsNonZero("scalars_." + descriptor()->name())},
               {"value_size", ValueSize()}}),
      R"(
      if ($is_non_zero$) size += $tag_size$ + $value_size$;
  )");
}

std::string ScalarFieldGenerator::Serialize() const {
  return Substitute(Combine(variables(), {{"WriteField", WriteFunction()},
                                          {"value", ValueToWrite()}}),
                    R"(
      p = internal::$WriteField$<$tag_value$>(p, $value$);
  )");
}

}  // namespace compiler
}  // namespace vantiro
