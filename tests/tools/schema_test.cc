#include "tools/schema/schema.h"

#include <gtest/gtest.h>

#include "tools/check/classes.h"

namespace vantiro {
namespace tools {
namespace {

std::string ErrorFor(const std::string& name) {
  try {
    Schema::BuiltIn().FindMessage(name);
  } catch (const NameError& error) {
    return error.what();
  }
  return "";
}

TEST(BuiltInSchema, HoldsAllUnitsAndSixteenRoots) {
  const Schema& schema = Schema::BuiltIn();
  EXPECT_EQ(schema.units().size(), 15u);
  EXPECT_EQ(schema.messages().size(), 237u);
  EXPECT_EQ(schema.enums().size(), 73u);
  EXPECT_EQ(schema.roots().size(), 16u);
}

TEST(BuiltInSchema, HasAClassForEveryMessage) {
  for (const Descriptor* const message : Schema::BuiltIn().messages()) {
    const auto object = NewMessage(message->full_name());
    ASSERT_NE(object, nullptr) << message->full_name();
    EXPECT_EQ(object->GetTypeName(), message->full_name());
  }
}

bool IsRead(const FieldDescriptor& field) {
  switch (field.type()) {
    case FieldDescriptor::TYPE_DOUBLE:
    case FieldDescriptor::TYPE_FIXED32:
    case FieldDescriptor::TYPE_FIXED64:
    case FieldDescriptor::TYPE_SFIXED32:
    case FieldDescriptor::TYPE_SFIXED64:
      return false;
    case FieldDescriptor::TYPE_STRING:
    case FieldDescriptor::TYPE_BYTES:
      return !field.is_repeated();
    default:
      return field.is_packed() == field.is_packable();
  }
}

// The classes read more. Whoever adds such a field has to teach the program
// first: it would misread the records.
TEST(BuiltInSchema, HasOnlyFieldsThatTheProgramReads) {
  for (const Descriptor* const message : Schema::BuiltIn().messages()) {
    for (const FieldDescriptor* const field : FieldsOf(message)) {
      EXPECT_TRUE(IsRead(*field)) << field->DebugString();
    }
  }
}

TEST(BuiltInSchema, TakesShortNamesWhereTheyAreUnique) {
  const Schema& schema = Schema::BuiltIn();
  for (const char* const name :
       {"ZAfDebugUi", "z3a_debug_data.zaf.ZAfDebugUi", "zaf::ZAfDebugUi"}) {
    EXPECT_EQ(schema.FindMessage(name).full_name(),
              "z3a_debug_data.zaf.ZAfDebugUi");
  }
  EXPECT_NE(schema.Find("ZAfFaceCount").enumeration, nullptr);
}

TEST(BuiltInSchema, ListsCandidatesForOtherNames) {
  EXPECT_EQ(ErrorFor("DebugExif"),
            "several types are named DebugExif, give one of:\n"
            "  z3a_debug_data.zabc.DebugExif\n"
            "  z3a_debug_data.zaf.DebugExif\n"
            "  z3a_debug_data.zatm.DebugExif\n"
            "  z3a_debug_data.zhawb.DebugExif");
  EXPECT_EQ(ErrorFor("debugui"),
            "the schema has no type debugui; similar names:\n"
            "  z3a_debug_data.zaf.ZAfDebugUi");
  EXPECT_EQ(ErrorFor("nothing_like_it"),
            "the schema has no type nothing_like_it; 'list' shows all types");
  EXPECT_EQ(ErrorFor("ZAfFaceCount"), "ZAfFaceCount is an enum, not a message");
}

TEST(BuiltInSchema, KnowsTheCommentsOfItsFiles) {
  const Descriptor& type = Schema::BuiltIn().FindMessage("ZAfRoiDimLite");
  EXPECT_EQ(Schema::Comment(type),
            "The face region of a video frame. Carried by ZAfVideoMetadata "
            "(field 10).");
}

}  // namespace
}  // namespace tools
}  // namespace vantiro
