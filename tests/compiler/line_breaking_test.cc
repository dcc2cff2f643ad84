#include "compiler/line_breaking.h"

#include <gtest/gtest.h>

#include <string>

namespace vantiro {
namespace compiler {
namespace {

TEST(LineBreaking, LeavesWhatFits) {
  const std::string code =
      "#error \"a directive that is longer than eighty columns, which cannot "
      "be "
      "broken\"\n"
      "\n"
      "class A {\n"
      "  int a;\n"
      "  // "
      "4567890123456789012345678901234567890123456789012345678901234567890\n"
      "};\n";
  EXPECT_EQ(BreakLongLines(code), code);
}

TEST(LineBreaking, SplitsFunctionsThatDoNotFitOnOneLine) {
  EXPECT_EQ(
      BreakLongLines(
          "  void set_operating_modes(::name::space::OperatingMode value) { "
          "mode_ = value; }\n"),
      "  void set_operating_modes(::name::space::OperatingMode value) {\n"
      "    mode_ = value;\n"
      "  }\n");
  EXPECT_EQ(BreakLongLines(
                "ANameThatIsLongEnough::ANameThatIsLongEnough(Arena* arena) : "
                "Base(arena), a_(arena) {}\n"),
            "ANameThatIsLongEnough::ANameThatIsLongEnough(Arena* arena)\n"
            "    : Base(arena), a_(arena) {}\n");
}

TEST(LineBreaking, GivesEachInitializerALineIfTheyDoNotFitOnOne) {
  EXPECT_EQ(BreakLongLines("A::A(const A& from) : Base(), "
                           "first_of_the_members_(from.first_of_the_members_), "
                           "second_(from.second_) {\n"),
            "A::A(const A& from)\n"
            "    : Base(),\n"
            "      first_of_the_members_(from.first_of_the_members_),\n"
            "      second_(from.second_) {\n");
}

TEST(LineBreaking, BreaksCallsWhereTheLeastIsLost) {
  // Aligned with the first argument, after "(", after "=".
  EXPECT_EQ(BreakLongLines("  p = internal::ReadUInt32(position_of_field, "
                           "end_of_input, &self->scalars_.modes);\n"),
            "  p = internal::ReadUInt32(position_of_field, end_of_input,\n"
            "                           &self->scalars_.modes);\n");
  EXPECT_EQ(
      BreakLongLines("  internal::MergeMessage(from.color_correction_matrix_, "
                     "arena, &color_correction_matrix_, true);\n"),
      "  internal::MergeMessage(from.color_correction_matrix_, arena,\n"
      "                         &color_correction_matrix_, true);\n");
  EXPECT_EQ(BreakLongLines(
                "  position = internal::WriteMessageField<82>("
                "color_correction_matrix_of_the_frame_, the_writer_of_all);"
                "\n"),
            "  position = internal::WriteMessageField<82>(\n"
            "      color_correction_matrix_of_the_frame_, the_writer_of_all);"
            "\n");
  EXPECT_EQ(BreakLongLines("  const internal::Tag next_tag_of_message = "
                           "internal::HandleUnexpectedTag(position, end);\n"),
            "  const internal::Tag next_tag_of_message =\n"
            "      internal::HandleUnexpectedTag(position, end);\n");
}

TEST(LineBreaking, BreaksDeclarationsAtTheReturnTypeAtLast) {
  EXPECT_EQ(BreakLongLines(
                "void Frame::SerializeWithCachedSizes(::google::protobuf::io"
                "::CodedOutputStream* output) const {\n"),
            "void Frame::SerializeWithCachedSizes(\n"
            "    ::google::protobuf::io::CodedOutputStream* output) const {\n");
  EXPECT_EQ(BreakLongLines("inline const ::name::space::ColorCorrectionMatrix& "
                           "Frame::color_correction_matrix() const {\n"),
            "inline const ::name::space::ColorCorrectionMatrix&\n"
            "Frame::color_correction_matrix() const {\n");
}

TEST(LineBreaking, BreaksComments) {
  EXPECT_EQ(BreakLongLines(
                "  // A comment that goes on for longer than eighty columns "
                "has to be broken into two.\n"),
            "  // A comment that goes on for longer than eighty columns has to "
            "be broken into\n"
            "  // two.\n");
  const std::string word = "// " + std::string(100, 'x') + "\n";
  EXPECT_EQ(BreakLongLines(word), word);
}

TEST(LineBreaking, BreaksStringsAfterASignOrElseAtTheLimit) {
  EXPECT_EQ(
      BreakLongLines("  return \"a_package.another_one.OneOfTheMessages."
                     "AnotherMessage.TheMessageInside\";\n"),
      "  return \"a_package.another_one.OneOfTheMessages.AnotherMessage.\""
      "\n         \"TheMessageInside\";\n");
  EXPECT_EQ(BreakLongLines("  return \"" + std::string(70, 'x') + "\";\n"),
            "  return \"" + std::string(69, 'x') + "\"\n         \"x\";\n");
}

TEST(LineBreaking, BreaksBeforeMembersOfLongNames) {
  const std::string name(67, 'n');
  EXPECT_EQ(BreakLongLines("    return " + name + "_.Release();\n"),
            "    return " + name + "_\n        .Release();\n");
  EXPECT_EQ(
      BreakLongLines("  if (!" + name + "_.Get().empty()) {\n"),
      "  if (!" + name + "_\n           .Get()\n           .empty()) {\n");
  EXPECT_EQ(BreakLongLines("    F(&self->scalars_." + name + ");\n"),
            "    F(\n        &self->scalars_\n             ." + name + ");\n");
}

TEST(LineBreaking, BreaksOperationsAfterTheOperator) {
  const std::string name(62, 'n');
  EXPECT_EQ(
      BreakLongLines("  size += 2 + SizeOfVarint(" + name + ");\n"),
      "  size +=\n      2 + SizeOfVarint(\n              " + name + ");\n");
  const std::string shorter(60, 'n');
  EXPECT_EQ(BreakLongLines("    if (scalars_." + shorter + " != 0) {\n"),
            "    if (scalars_." + shorter + " !=\n        0) {\n");
}

}  // namespace
}  // namespace compiler
}  // namespace vantiro
