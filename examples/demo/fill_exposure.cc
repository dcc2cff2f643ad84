#include "examples/demo/fill.h"

namespace vantiro::examples {
namespace {

namespace zabc = z3a_debug_data::zabc;
namespace z3abase = z3a_debug_data::z3abase;

void FillCamera(zabc::CameraInformation* camera) {
  camera->set_field_2(zabc::LOGIC_LEAD);
  camera->set_field_3(zabc::DUAL_MODE_WIDE);
  camera->set_field_4(zabc::POSITION_REAR);
  camera->set_sensor_name("rear_wide");
  camera->set_field_7(zabc::WIDE);
}

void FillInputs(zabc::AlgorithmInputs* inputs) {
  inputs->set_field_3(zabc::OPERATION_PREVIEW);
  inputs->set_field_4(zabc::CENTER_METEREING);
  inputs->mutable_face_roi()->set_field_1(1);
  z3abase::RegionDimension* face =
      inputs->mutable_face_roi()->add_region_dimension_list();
  face->set_field_1(0.42f);
  face->set_field_2(0.31f);
  face->set_field_3(0.16f);
  face->set_field_4(0.21f);
  for (const float gain : {1.92f, 1.0f, 1.0f, 1.61f}) {
    inputs->mutable_zawb_info()->add_field_2(gain);
  }
  // No shift. That none was asked for would be an absent message.
  inputs->mutable_exposure_shift_value();
  inputs->mutable_flicker_compensation()->set_field_1(zabc::FLICKER_AUTO_50HZ);
  inputs->mutable_fps_range()->set_field_1(15.0f);
  inputs->mutable_fps_range()->set_field_2(30.0f);
  FillCamera(inputs->mutable_camera_info());
  // Limits such as an exposure time in nanoseconds need 64 bits.
  inputs->mutable_sensor_limit()->set_field_1(14'000);
  inputs->mutable_sensor_limit()->set_field_2(10'000'000'000);
  inputs->set_field_24(-6);
}

void FillOutputs(zabc::AlgorithmOutputs* outputs) {
  // The exposure in APEX terms; then a time in milliseconds, a gain and a lux.
  outputs->mutable_apex_result()->set_field_1(2.4f);
  outputs->mutable_apex_result()->set_field_2(5.06f);
  outputs->mutable_exposure_result()->set_field_1(30.0f);
  outputs->mutable_exposure_result()->set_field_2(2.75f);
  outputs->mutable_exposure_result()->set_field_3(180.0f);
  outputs->mutable_flash_result()->set_field_4(zabc::kFlashStatusOff);
  for (int i = 0; i < 16; ++i) {
    outputs->mutable_algo_result()->add_field_17(0.0625f *
                                                 static_cast<float>(i));
  }
}

}  // namespace

void Fill(zabc::DebugExif* record) {
  record->set_field_1(4711);
  zabc::DebugDataFrame* frame = record->mutable_debug_frame();
  FillInputs(frame->mutable_input_output_debug_data()->mutable_algo_input());
  FillOutputs(frame->mutable_input_output_debug_data()->mutable_algo_output());
  frame->mutable_sfa_debug_data()->set_field_1(118.5f);
  frame->mutable_sa_debug_data()->set_field_14(true);
  // This stage tells only that it ran.
  frame->mutable_flicker_debug_data();
}

}  // namespace vantiro::examples
