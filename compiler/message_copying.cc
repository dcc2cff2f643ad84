// The clearing, merging, copying and swapping of a message, which go into the
// source.

#include "compiler/message_generator.h"

namespace vantiro {
namespace compiler {

std::string MessageGenerator::Arena() const {
  return has_arenas_ && HasSubMessages()
             ? "::google::protobuf::Arena* const arena = "
               "GetArenaForAllocation();\n"
             : "";
}

std::string MessageGenerator::Clearing() const {
  const std::string clear_scalars =
      !HasScalars() ? "" : Substitute(variables_, R"(
      $scalars$ = $Scalars$();
  )");
  return Function("void $Class$::Clear()",
                  Arena() + ForFields(&FieldGenerator::Clear) + clear_scalars +
                      "_internal_metadata_.Clear<::std::string>();\n") +
         "\n";
}

std::string MessageGenerator::Merging() const {
  std::string scalars;
  for (const auto& group : JoinedGroups()) {
    scalars += Substitute(GroupVariables(group), R"(
      $comment$
      $internal$::MergeScalars<$count$>(&from.$scalars$.$first$, &$scalars$.$first$);
  )");
  }
  const std::string merge =
      Function("void $Class$::MergeFrom(const $Class$& from)",
               IfDefaultInstance("&from", "return;") +
                   "_internal_metadata_.MergeFrom<::std::string>("
                   "from._internal_metadata_);\n" +
                   Arena() + scalars + ForOtherFields(&FieldGenerator::Merge));
  return Substitute(Combine(variables_, {{"merge", merge}}), R"(
      $merge$

      void $Class$::CheckTypeAndMergeFrom(const ::google::protobuf::MessageLite& from) { $internal$::MergeUnchecked(from, this); }

  )");
}

std::string MessageGenerator::Copying() const {
  const std::string unless_default =
      IfDefaultInstance("&from", "return Clear();");
  const std::string body =
      Substitute(Combine(variables_, {{"unless_default", unless_default}}),
                 unless_default.empty() ? R"(
      if (&from != this) CopyFields(from, $internal$::CopyTarget::kCleared);
  )"
                                        : R"(
      if (&from == this) return;
      $unless_default$
      CopyFields(from, $internal$::CopyTarget::kCleared);
  )");
  std::string copy_fields = Substitute(variables_, R"(
      if (target == $internal$::CopyTarget::kNew) SetCachedSize(0);
      $internal$::CopyUnknownFields(from._internal_metadata_, &_internal_metadata_);
  )") + Arena() + ForFields(&FieldGenerator::Copy);
  if (HasScalars()) {
    copy_fields += Substitute(variables_, R"(
      $scalars$ = from.$scalars$;
  )");
  }
  for (const auto& group : ScalarGroups()) {
    if (group.front()->size_kind() != "Float") continue;
    copy_fields += Substitute(GroupVariables(group), R"(
      $comment$
      $internal$::DropNegativeZeros<$count$>(&$scalars$.$first$);
  )");
  }
  copy_fields += ForFields(&FieldGenerator::AfterCopyOfScalars);
  return Function("void $Class$::CopyFrom(const $Class$& from)", body) + "\n" +
         Function(
             "void $Class$::CopyFields(const $Class$& from, "
             "$internal$::CopyTarget target)",
             copy_fields) +
         "\n";
}

std::string MessageGenerator::Swapping() const {
  const std::string swap_scalars =
      !HasScalars() ? "" : Substitute(variables_, R"(
      ::std::swap($scalars$, other->$scalars$);
  )");
  return Function("void $Class$::InternalSwap($Class$* other)",
                  "_internal_metadata_.Swap<::std::string>("
                  "&other->_internal_metadata_);\n" +
                      ForFields(&FieldGenerator::Swap) + swap_scalars) +
         "\n";
}

}  // namespace compiler
}  // namespace vantiro
