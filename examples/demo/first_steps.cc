#include "examples/demo/first_steps.h"

#include <cstdint>
#include <iomanip>
#include <iostream>
#include <sstream>
#include <string>

#include "z3a_common.pb.h"

namespace vantiro::examples {
namespace {

namespace z3abase = z3a_debug_data::z3abase;

// Two faces and how many they are. Most fields are called field_<number>: what
// they mean is between those who fill and those who read a record.
z3abase::FaceRoiType TwoFaces() {
  z3abase::FaceRoiType faces;
  faces.set_field_1(2);
  z3abase::RegionDimension* first = faces.add_region_dimension_list();
  first->set_field_1(0.3125f);
  first->set_field_2(0.21875f);
  first->set_field_7(300);
  // A zero is not written: an element with nothing else takes two bytes.
  z3abase::RegionDimension* second = faces.add_region_dimension_list();
  second->set_field_1(0.0f);
  return faces;
}

z3abase::FrameInformation Frame(uint64_t number) {
  z3abase::FrameInformation frame;
  frame.set_field_1(number);
  frame.set_field_2(true);
  // A sub-message exists from the first mutable_ on.
  frame.mutable_window_size()->set_field_3(4032.0f);
  frame.mutable_window_size()->set_field_4(3024.0f);
  frame.set_field_5(33.25f);
  return frame;
}

std::string ToHex(const std::string& bytes) {
  std::ostringstream hex;
  hex << std::hex << std::setfill('0');
  for (const char byte : bytes) {
    hex << std::setw(2) << static_cast<int>(static_cast<uint8_t>(byte)) << ' ';
  }
  return hex.str();
}

void ShowWriteAndRead(Checks* checks) {
  const std::string bytes = TwoFaces().SerializeAsString();
  std::cout << "FaceRoiType: " << ToHex(bytes) << "\n";
  checks->Expect(
      ToHex(bytes) ==
          "08 02 12 0d 0d 00 00 a0 3e 15 00 00 60 3e 38 ac 02 12 00 ",
      "two faces take these 19 bytes");

  // A parse clears the message first. False means: not all of the bytes could
  // be read, and what the message now holds is to be thrown away.
  z3abase::FaceRoiType faces;
  checks->Expect(faces.ParseFromString(bytes), "the bytes parse");
  checks->Expect(faces.region_dimension_list_size() == 2 &&
                     faces.region_dimension_list(0).field_7() == 300 &&
                     faces.SerializeAsString() == bytes,
                 "the record read is the record written");
  checks->Expect(!faces.ParseFromString(bytes.substr(0, bytes.size() - 1)),
                 "with the last byte missing, the parse gives false");
}

void ShowMergeCopyClear(Checks* checks) {
  std::cout << "\nMerge, copy, clear\n";
  z3abase::FaceRoiType faces = TwoFaces();
  z3abase::FaceRoiType one_more;
  one_more.add_region_dimension_list()->set_field_7(3);
  faces.MergeFrom(one_more);
  checks->Expect(faces.region_dimension_list_size() == 3 &&
                     faces.region_dimension_list(2).field_7() == 3,
                 "a merge appends repeated fields: 2 faces and 1 make 3");
  checks->Expect(faces.field_1() == 2,
                 "a zero in the source leaves the target's value alone");

  z3abase::FrameInformation frame = Frame(1);
  frame.MergeFrom(Frame(2));
  checks->Expect(frame.field_1() == 2, "any other value replaces it");

  const z3abase::FrameInformation copy = frame;
  frame.mutable_window_size()->set_field_3(1.0f);
  checks->Expect(copy.window_size().field_3() == 4032.0f,
                 "a copy has sub-messages of its own");

  frame.Clear();
  checks->Expect(!frame.has_window_size() && frame.ByteSizeLong() == 0,
                 "after Clear nothing is left to write");
  checks->Expect(frame.window_size().field_3() == 0.0f,
                 "an absent sub-message reads as an empty one");
}

}  // namespace

void ShowFirstSteps(Checks* checks) {
  std::cout << "1. One small record\n\n";
  ShowWriteAndRead(checks);
  ShowMergeCopyClear(checks);
}

}  // namespace vantiro::examples
