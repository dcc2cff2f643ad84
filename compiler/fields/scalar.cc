#include "compiler/fields/scalar.h"

namespace vantiro {
namespace compiler {

ScalarFieldGenerator::ScalarFieldGenerator(
    const google::protobuf::FieldDescriptor* field, const std::string& kind,
    const std::string& type, const std::string& stored_type)
    : FieldGenerator(field) {
  AddVariables({{"Kind", kind}, {"type", type}, {"stored_type", stored_type}});
}

std::string ScalarFieldGenerator::AccessorDeclarations() const {
  return Substitute(Combine(variables(), {{"value", ValueToGet()}}), R"(
      void clear_$name$() { $scalars$.$name$ = {}; }
      $type$ $name$() const { return $value$; }
      void set_$name$($type$ value) { $scalars$.$name$ = value; }
  )");
}

std::string ScalarFieldGenerator::Member() const {
  return Substitute(variables(), R"(
      $stored_type$ $name$;
  )");
}

std::string ScalarFieldGenerator::Merge() const {
  return Substitute(variables(), R"(
      $internal$::MergeScalar(from.$scalars$.$name$, &$scalars$.$name$);
  )");
}

std::string ScalarFieldGenerator::ByteSize() const {
  return Substitute(
      Combine(variables(), {{"is_non_zero", IsNonZero(StoredValue())},
                            {"value_size", ValueSize()}}),
      R"(
      if ($is_non_zero$) {
        size += $tag_size$ + $value_size$;
      }
  )");
}

std::string ScalarFieldGenerator::Serialize() const {
  return Substitute(variables(), R"(
      p = $internal$::Write$Kind$Field<$tag_value$>(p, $scalars$.$name$);
  )");
}

std::string ScalarFieldGenerator::Parse() const {
  return Substitute(variables(), R"(
      if ($internal$::IsNext(tag, $tag$)) {  // $name$
        p = $internal$::Read$Kind$(p + $tag_size$, end, &self->$scalars$.$name$);
        if (!$PeekTag$After(p, end, &tag)) return nullptr;
      }
  )");
}

}  // namespace compiler
}  // namespace vantiro
