// Fills a record of exposure, writes it to a string and reads it from there.

#include <google/protobuf/arena.h>
#include <zABC_debug.pb.h>

#include <iostream>
#include <string>

namespace zabc = z3a_debug_data::zabc;

void Fill(zabc::DebugExif* record) {
  record->set_field_1(4711);
  // mutable_ creates an absent sub-message, add_ an element of a repeated
  // field.
  zabc::AlgorithmInputs* inputs = record->mutable_debug_frame()
                                      ->mutable_input_output_debug_data()
                                      ->mutable_algo_input();
  inputs->set_field_3(zabc::OPERATION_PREVIEW);
  inputs->mutable_camera_info()->set_sensor_name("rear_wide");
  inputs->mutable_face_roi()->add_region_dimension_list()->set_field_1(0.42f);
}

int main() {
  // Write. On an arena, the record and all that is in it are freed with it.
  google::protobuf::Arena arena;
  auto* record =
      google::protobuf::Arena::CreateMessage<zabc::DebugExif>(&arena);
  Fill(record);
  const std::string bytes = record->SerializeAsString();

  // Read. An absent sub-message reads as an empty one.
  zabc::DebugExif read;
  if (!read.ParseFromString(bytes)) return 1;
  const zabc::AlgorithmInputs& inputs =
      read.debug_frame().input_output_debug_data().algo_input();
  std::cout << zabc::OperationModeType_Name(inputs.field_3()) << ", "
            << inputs.camera_info().sensor_name() << "\n";
}
