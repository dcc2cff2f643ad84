#include "examples/demo/describe.h"

namespace vantiro::examples {

namespace z3abase = z3a_debug_data::z3abase;
namespace zabc = z3a_debug_data::zabc;
namespace zaf = z3a_debug_data::zaf;
namespace zhawb = z3a_debug_data::zhawb;

void Describe(const z3abase::FaceRoiType& faces, std::ostream& out) {
  out << "  " << faces.field_1() << " faces\n";
  for (const z3abase::RegionDimension& region : faces.region_dimension_list()) {
    out << "  region " << region.field_1() << " " << region.field_2() << " "
        << region.field_3() << " " << region.field_4() << "; "
        << region.field_5() << ", " << region.field_6() << ", "
        << region.field_7() << "\n";
  }
}

void Describe(const z3abase::FamiliarFaceTruetoneInput& faces,
              std::ostream& out) {
  out << "  field_1 " << faces.field_1() << "\n";
  for (const auto& face :
       faces.single_familiar_face_truetone_data_input_list()) {
    out << "  face " << face.field_1() << ", " << face.field_2() << ", "
        << face.field_3() << ", " << face.field_4_size() << " elements";
    for (const float element : face.field_4()) out << " " << element;
    out << "\n";
  }
}

void Describe(const z3abase::FrameInformation& frame, std::ostream& out) {
  out << "  frame " << frame.field_1() << ", window "
      << frame.window_size().field_3() << " x " << frame.window_size().field_4()
      << ", field_5 " << frame.field_5() << "\n";
}

void Describe(const z3abase::SensorRoiInfo& roi, std::ostream& out) {
  out << "  region " << roi.field_1() << " " << roi.field_2() << " "
      << roi.field_3() << " " << roi.field_4() << "; " << roi.field_5() << ", "
      << roi.field_6() << "\n";
}

void Describe(const z3abase::ZAbcInformationToZHawb& information,
              std::ostream& out) {
  out << "  field_2 to field_5 " << information.field_2() << ", "
      << information.field_3() << ", " << information.field_4() << ", "
      << information.field_5() << "\n  "
      << z3abase::FlashMode_Name(information.field_11()) << ", "
      << z3abase::FlashState_Name(information.field_12()) << ", sensitivity "
      << information.flash_sensitivity().field_1() << "\n";
}

void Describe(const z3abase::ZhawbInformation& information, std::ostream& out) {
  const auto& matrix = information.color_correction_matrix();
  out << "  diagonal of the matrix " << matrix.field_1() << " "
      << matrix.field_6() << " " << matrix.field_11() << "\n  gains";
  for (const float gain : information.field_2()) out << " " << gain;
  out << "\n";
}

void Describe(const zabc::DebugExif& record, std::ostream& out) {
  // Absent messages read as empty ones, so no step of a path needs a test.
  const zabc::DebugDataInputOutput& frame =
      record.debug_frame().input_output_debug_data();
  const zabc::AlgorithmInputs& inputs = frame.algo_input();
  const zabc::ExposureResult& result = frame.algo_output().exposure_result();
  out << "  " << zabc::OperationModeType_Name(inputs.field_3()) << ", camera \""
      << inputs.camera_info().sensor_name()
      << "\", faces: " << inputs.face_roi().region_dimension_list_size()
      << ", further frames: " << record.debug_data_frame_list_size()
      << "\n  exposure result " << result.field_1() << ", " << result.field_2()
      << ", " << result.field_3() << "; algorithm's elements: "
      << frame.algo_output().algo_result().field_17_size() << "\n";
}

void Describe(const zhawb::DebugExif& record, std::ostream& out) {
  const zhawb::ZHawbDebugInput& input =
      record.debug_input().input_information();
  const zhawb::ZHawbDebugOutput& output =
      record.debug_data().output_information();
  out << "  frame " << input.frame_information().field_1() << ", camera \""
      << record.debug_input().camera_information().sensor_name()
      << "\", regions: " << record.debug_data().debug_region_list_size()
      << "\n  " << zhawb::ZHawbState_Name(output.field_4()) << ", "
      << zhawb::ZHawbIlluminantType_Name(output.field_7());
  // Only a sub-message can tell that it was never set.
  if (output.has_decision_gain()) {
    const zhawb::ZHawbGains& gains = output.decision_gain();
    out << ", gains " << gains.field_1() << " " << gains.field_2() << " "
        << gains.field_3() << "\n";
  } else {
    out << ", no gains decided\n";
  }
}

void Describe(const zaf::DebugExif& record, std::ostream& out) {
  const zaf::ZAfDebugSession& session = record.debug_session();
  out << "  " << zaf::CameraPosition_Name(record.field_3()) << ", "
      << zaf::LensType_Name(record.field_4())
      << ", frame inputs: " << record.frame_input_list_size()
      << ", history entries: " << record.debug_history_entry_list_size()
      << "\n  lens range " << session.input().lens_range().field_1() << " to "
      << session.input().lens_range().field_2() << ", search range "
      << session.search_info().pd_search_range().field_1() << " to "
      << session.search_info().pd_search_range().field_2() << " by "
      << zaf::SearchletMainAlgo_Name(session.search_info().field_24()) << "\n";
}

}  // namespace vantiro::examples
