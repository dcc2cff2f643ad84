#include "examples/shared_records.h"

#include <iostream>
#include <string>

#include "examples/record_file.h"
#include "z3a_common.pb.h"

namespace vantiro::examples {
namespace {

namespace z3abase = z3a_debug_data::z3abase;

void Describe(const z3abase::FaceRoiType& faces) {
  std::cout << "  " << faces.field_1() << " faces\n";
  for (const z3abase::RegionDimension& region : faces.region_dimension_list()) {
    std::cout << "  region " << region.field_1() << " " << region.field_2()
              << " " << region.field_3() << " " << region.field_4() << "; "
              << region.field_5() << ", " << region.field_6() << ", "
              << region.field_7() << "\n";
  }
}

void Describe(const z3abase::FamiliarFaceTruetoneInput& faces) {
  std::cout << "  field_1 " << faces.field_1() << "\n";
  for (const auto& face :
       faces.single_familiar_face_truetone_data_input_list()) {
    std::cout << "  face " << face.field_1() << ", " << face.field_2() << ", "
              << face.field_3() << ", list of " << face.field_4_size();
    for (const float element : face.field_4()) std::cout << " " << element;
    std::cout << "\n";
  }
}

void Describe(const z3abase::FrameInformation& frame) {
  std::cout << "  frame " << frame.field_1() << ", window "
            << frame.window_size().field_3() << " x "
            << frame.window_size().field_4() << ", field_5 " << frame.field_5()
            << "\n";
}

void Describe(const z3abase::SensorRoiInfo& roi) {
  std::cout << "  region " << roi.field_1() << " " << roi.field_2() << " "
            << roi.field_3() << " " << roi.field_4() << "; " << roi.field_5()
            << ", " << roi.field_6() << "\n";
}

void Describe(const z3abase::ZAbcInformationToZHawb& information) {
  std::cout << "  field_2 to field_5 " << information.field_2() << ", "
            << information.field_3() << ", " << information.field_4() << ", "
            << information.field_5() << "\n  "
            << z3abase::FlashMode_Name(information.field_11()) << ", "
            << z3abase::FlashState_Name(information.field_12())
            << ", sensitivity " << information.flash_sensitivity().field_1()
            << "\n";
}

void Describe(const z3abase::ZhawbInformation& information) {
  const auto& matrix = information.color_correction_matrix();
  std::cout << "  diagonal of the matrix " << matrix.field_1() << " "
            << matrix.field_6() << " " << matrix.field_11() << "\n  gains";
  for (const float gain : information.field_2()) std::cout << " " << gain;
  std::cout << "\n";
}

template <typename T>
void ShowReference(Checks* checks) {
  T record;
  std::string bytes;
  const bool parses =
      ReadFile(RecordPath(ReferenceFolder(), record.GetTypeName()), &bytes) &&
      record.ParseFromString(bytes);
  std::cout << "\n"
            << record.GetTypeName() << ", " << bytes.size() << " bytes\n";
  if (parses) Describe(record);
  checks->Expect(parses && record.SerializeAsString() == bytes,
                 "serialises back to the same bytes");
}

}  // namespace

void ShowSharedRecords(Checks* checks) {
  std::cout << "\n2. The shared vocabulary: records written elsewhere\n";
  ShowReference<z3abase::FaceRoiType>(checks);
  ShowReference<z3abase::FamiliarFaceTruetoneInput>(checks);
  ShowReference<z3abase::FrameInformation>(checks);
  ShowReference<z3abase::SensorRoiInfo>(checks);
  ShowReference<z3abase::ZAbcInformationToZHawb>(checks);
  ShowReference<z3abase::ZhawbInformation>(checks);
}

}  // namespace vantiro::examples
