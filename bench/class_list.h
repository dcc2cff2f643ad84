// The classes that are measured, for either set: the names are looked up in
// the namespaces that the including file puts under `measured`.

#ifndef VANTIRO_BENCH_CLASS_LIST_H_
#define VANTIRO_BENCH_CLASS_LIST_H_

#include <vector>

#include "bench/classes.h"

namespace vantiro {
namespace bench {

template <typename T>
Class MakeClass(const char* name, void (*fill)(MessageLite*) = nullptr) {
  return {name,
          [](Arena* arena) -> MessageLite* {
            return T::default_instance().New(arena);
          },
          [](MessageLite* to, const MessageLite& from) {
            static_cast<T*>(to)->CopyFrom(static_cast<const T&>(from));
          },
          fill};
}

template <typename T>
void FillFaces(MessageLite* message) {
  auto* const faces = static_cast<T*>(message);
  faces->set_field_1(6);
  for (int i = 0; i < 6; ++i) {
    auto* const region = faces->add_region_dimension_list();
    region->set_field_1(0.25F * static_cast<float>(i));
    region->set_field_2(0.5F);
    region->set_field_3(100.F);
    region->set_field_7(300);
  }
}

template <typename T>
void FillFrame(MessageLite* message) {
  auto* const frame = static_cast<T*>(message);
  frame->set_field_1(123456);
  frame->set_field_2(true);
  frame->mutable_window_size()->set_field_1(4000.F);
  frame->mutable_window_size()->set_field_7(1);
  frame->set_field_5(0.033F);
}

template <typename T>
void FillWhiteBalance(MessageLite* message) {
  auto* const information = static_cast<T*>(message);
  information->mutable_color_correction_matrix()->set_field_1(1.5F);
  for (int i = 0; i < 9; ++i) information->add_field_2(1.F / (i + 1));
}

}  // namespace bench
}  // namespace vantiro

#endif  // VANTIRO_BENCH_CLASS_LIST_H_
