#include "compiler/fields/scalar.h"

namespace vantiro {
namespace compiler {

ScalarField::ScalarField(const google::protobuf::FieldDescriptor* field,
                         const std::string& type,
                         const std::string& stored_type)
    : Field(field) {
  AddHoles({{"type", type}, {"stored_type", stored_type}});
}

std::string ScalarField::Member() const {
  return Fill(holes(), R"(
      $stored_type$ $name$;
  )");
}

std::string ScalarField::AccessorDeclarations() const {
  return Fill(holes(), R"(
      // $declaration$
      void clear_$name$();
      $type$ $name$() const;
      void set_$name$($type$ value);
  )");
}

std::string ScalarField::AccessorDefinitions() const {
  return Fill(holes(), R"(
      inline void $Class$::clear_$name$() { scalars_.$name$ = {}; }
      inline $type$ $Class$::$name$() const {
        return static_cast<$type$>(scalars_.$name$);
      }
      inline void $Class$::set_$name$($type$ value) { scalars_.$name$ = value; }
  )");
}

std::string ScalarField::Merge() const {
  return Fill(With(holes(), {{"is_non_zero", IsNonZero("from.scalars_." +
                                                       descriptor()->name())}}),
              R"(
      if ($is_non_zero$) scalars_.$name$ = from.scalars_.$name$;
  )");
}

std::string ScalarField::ByteSize() const {
  return Fill(With(holes(), {{"is_non_zero",
                              IsNonZero("scalars_." + descriptor()->name())},
                             {"value_size", ValueSize()}}),
              R"(
      if ($is_non_zero$) size += $tag_size$ + $value_size$;
  )");
}

std::string ScalarField::Serialize() const {
  return Fill(With(holes(), {{"is_non_zero",
                              IsNonZero("scalars_." + descriptor()->name())},
                             {"write_value", WriteValue()}}),
              R"(
      if ($is_non_zero$) {
        p = internal::WriteTag<$tag_value$>(p);
        p = $write_value$;
      }
  )");
}

int ScalarField::tag_size() const {
  return holes().at("tag_size") == "1" ? 1 : 2;
}

}  // namespace compiler
}  // namespace vantiro
