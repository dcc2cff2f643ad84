#include "examples/demo/fill.h"

namespace vantiro::examples {
namespace {

namespace zhawb = z3a_debug_data::zhawb;
namespace z3abase = z3a_debug_data::z3abase;

void FillInputs(zhawb::ZHawbDebugParameterInput* inputs) {
  zhawb::ZHawbDebugInput* input = inputs->mutable_input_information();
  input->mutable_frame_information()->set_field_1(4711);
  input->set_field_6(zhawb::ZHAWB_MODE_AUTO);
  input->set_field_9(zhawb::ZHAWB_CAPTURE_INTENT_PREVIEW);
  input->set_field_10(z3abase::OPERATION_PREVIEW);
  input->mutable_zabc_information()->set_field_2(30.0f);
  input->mutable_zabc_information()->set_field_3(2.75f);
  // A region may begin left of the origin: these are signed.
  input->mutable_sensor_roi_information()->set_field_1(-8);
  input->mutable_sensor_roi_information()->set_field_3(4040);

  zhawb::ZHawbDebugCameraInformation* camera =
      inputs->mutable_camera_information();
  camera->set_sensor_name("rear_wide");
  camera->set_device_name("demo");
  camera->set_field_3(z3abase::CAMERA_POSITION_REAR);
  // Strings have to be UTF-8; a bytes field takes anything.
  camera->set_field_8(std::string("\xff\x00\x7f", 3));
}

void FillGains(float red, float green, float blue, zhawb::ZHawbGains* gains) {
  gains->set_field_1(red);
  gains->set_field_2(green);
  gains->set_field_3(blue);
}

void FillDecision(zhawb::ZHawbDebugData* data) {
  zhawb::ZHawbDebugRegion* region = data->add_debug_region_list();
  region->set_field_1(true);
  region->set_field_2(zhawb::ZHAWB_REGION_GREY);
  // A colour temperature and how many cells of the frame have it.
  for (const int temperature : {4800, 5000, 5200}) {
    zhawb::ZHawbCCTRegionData* cells = region->add_region_list();
    cells->set_field_1(temperature);
    cells->set_field_2(64);
  }
  zhawb::ZHawbDebugOutput* output = data->mutable_output_information();
  output->set_field_4(zhawb::ZHAWB_STATE_CONVERGED);
  output->set_field_5(zhawb::ZHAWB_MODE_AUTO);
  output->set_field_7(zhawb::ZHAWB_ILLUMINANT_D50);
  output->set_field_8(5003.0f);
  FillGains(1.92f, 1.0f, 1.61f, output->mutable_decision_gain());
  FillGains(1.94f, 1.0f, 1.58f, output->mutable_without_preference_gain());
  output->mutable_preference_adjust()->set_field_1(-0.02f);
}

}  // namespace

void Fill(zhawb::DebugExif* record) {
  record->set_field_1(144);
  FillInputs(record->mutable_debug_input());
  FillDecision(record->mutable_debug_data());
}

}  // namespace vantiro::examples
