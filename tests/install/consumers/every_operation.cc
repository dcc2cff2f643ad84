// A program as clients write it: every kind of accessor and operation that the
// classes have had since Protocol Buffers 3.9.1, in plain C++11. It is compiled
// in many ways with an installed library, and run.

#include <google/protobuf/arena.h>
#include <google/protobuf/io/coded_stream.h>
#include <google/protobuf/io/zero_copy_stream_impl.h>
#include <google/protobuf/io/zero_copy_stream_impl_lite.h>
#include <google/protobuf/message_lite.h>
#include <google/protobuf/repeated_field.h>
#include <google/protobuf/stubs/common.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <memory>
#include <sstream>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "z3a_common.pb.h"
#include "zABC_debug.pb.h"
#include "zAF_debug.pb.h"
#include "zHAWB_debug.pb.h"
#include "zaf_common.pb.h"
#include "zaf_module_frame_io.pb.h"

namespace z3abase = z3a_debug_data::z3abase;
namespace zabc = z3a_debug_data::zabc;
namespace zaf_debug = z3a_debug_data::zaf;
namespace zhawb = z3a_debug_data::zhawb;
using google::protobuf::Arena;
using google::protobuf::MessageLite;
using google::protobuf::RepeatedField;
using google::protobuf::RepeatedPtrField;
using google::protobuf::io::ArrayInputStream;
using google::protobuf::io::CodedInputStream;
using google::protobuf::io::CodedOutputStream;
using google::protobuf::io::IstreamInputStream;
using google::protobuf::io::OstreamOutputStream;
using google::protobuf::io::StringOutputStream;

#define EXPECT(condition)                                          \
  do {                                                             \
    if (!(condition)) {                                            \
      std::fprintf(stderr, "line %d: %s\n", __LINE__, #condition); \
      std::exit(1);                                                \
    }                                                              \
  } while (false)

// Sets a scalar, reads it and clears it.
#define EXPECT_SCALAR(Message, name, Type, example)                    \
  do {                                                                 \
    Message message;                                                   \
    static_assert(std::is_same<decltype(message.name()), Type>::value, \
                  #Message " " #name);                                 \
    message.set_##name(example);                                       \
    EXPECT(message.name() == static_cast<Type>(example));              \
    message.clear_##name();                                            \
    EXPECT(message.name() == Type());                                  \
  } while (false)

// Fills a repeated field of scalars and reads it in every way.
#define EXPECT_REPEATED(Message, name, Type, Element, example)       \
  do {                                                               \
    Message message;                                                 \
    message.add_##name(Type());                                      \
    message.set_##name(0, example);                                  \
    Type first = message.name(0);                                    \
    EXPECT(message.name##_size() == 1 && first == example);          \
    RepeatedField<Element>* const values = message.mutable_##name(); \
    values->Add(first);                                              \
    const RepeatedField<Element>& read = message.name();             \
    for (Element element : read) EXPECT(element == example);         \
    EXPECT(read.size() == 2);                                        \
    message.clear_##name();                                          \
    EXPECT(message.name##_size() == 0);                              \
  } while (false)

static void Scalars() {
  EXPECT_SCALAR(z3abase::RegionDimension, field_1, float, 1.5f);
  EXPECT_SCALAR(z3abase::RegionDimension, field_7, std::uint32_t, 300u);
  EXPECT_SCALAR(z3abase::FrameInformation, field_1, std::uint64_t, 1ull << 40);
  EXPECT_SCALAR(z3abase::FrameInformation, field_2, bool, true);
  EXPECT_SCALAR(z3abase::SensorRoiInfo, field_1, std::int32_t, -1);
  EXPECT_SCALAR(zabc::SensorHWLimit, field_1, std::int64_t, -(1ll << 40));
  EXPECT_SCALAR(zaf_debug::ZAfManualFocusConfig, field_2, std::int32_t, -1);
  EXPECT_SCALAR(zaf_debug::ZAfFrameInputSaliencyRoi, field_1, std::int64_t, -1);
  EXPECT_SCALAR(zaf_debug::ZAfManualFocusConfig, field_1,
                zaf_debug::ZAfManualPosType, zaf_debug::ZAfManualPosType_MAX);
}

static void RepeatedScalars() {
  EXPECT_REPEATED(z3abase::ZhawbInformation, field_2, float, float, 1.5f);
  EXPECT_REPEATED(zaf_debug::ZAfFrameInputSmartRoi, field_4, std::uint32_t,
                  std::uint32_t, 7u);
  EXPECT_REPEATED(zabc::FlickerInfo, field_3, std::int32_t, std::int32_t, -7);
  EXPECT_REPEATED(zaf_debug::ZAfFrameInputMultistatsParam, field_7,
                  std::int32_t, std::int32_t, -7);
  EXPECT_REPEATED(zabc::MultiCamSwitchResult, field_1, zabc::CameraDualMode,
                  int, zabc::CameraDualMode_MAX);
}

static void Strings() {
  zhawb::ZHawbDebugCameraInformation camera;
  const std::string name = "name";
  camera.set_sensor_name(name);
  camera.set_sensor_name(std::string("moved"));
  camera.set_sensor_name("literal");
  camera.set_sensor_name("counted string", 7);
  const std::string& sensor_name = camera.sensor_name();
  EXPECT(sensor_name == "counted");
  camera.mutable_sensor_name()->append("!");
  std::unique_ptr<std::string> released(camera.release_sensor_name());
  EXPECT(*released == "counted!" && camera.sensor_name().empty());
  camera.set_allocated_sensor_name(released.release());
  const unsigned char bytes[] = {0, 0xff};
  camera.set_field_8(bytes, sizeof(bytes));
  EXPECT(camera.field_8() == std::string("\0\xff", 2));
  camera.clear_field_8();
  camera.set_allocated_sensor_name(nullptr);
  EXPECT(camera.ByteSizeLong() == 0);

  Arena arena;
  auto* const on_arena =
      Arena::CreateMessage<zhawb::ZHawbDebugCameraInformation>(&arena);
  std::string* const owned = Arena::Create<std::string>(&arena, "on the arena");
  on_arena->unsafe_arena_set_allocated_device_name(owned);
  EXPECT(on_arena->device_name() == "on the arena");
  EXPECT(*on_arena->unsafe_arena_release_device_name() == "on the arena");
}

static void SubMessages() {
  z3abase::FrameInformation frame;
  const z3abase::RegionDimension& absent = frame.window_size();
  EXPECT(!frame.has_window_size());
  EXPECT(&absent == &z3abase::RegionDimension::default_instance());
  frame.mutable_window_size()->set_field_7(1);
  std::unique_ptr<z3abase::RegionDimension> size(frame.release_window_size());
  EXPECT(size->field_7() == 1 && !frame.has_window_size());
  frame.set_allocated_window_size(size.release());
  frame.clear_window_size();
  frame.unsafe_arena_set_allocated_window_size(new z3abase::RegionDimension);
  delete frame.unsafe_arena_release_window_size();

  zaf_debug::ZAfFrameInputSmartRoi roi;
  zaf_debug::ZAfFrameInputPd::ZAfPdWindow* const window =
      roi.add_pd_window_list();
  zaf_debug::ZAfFrameInputPd_ZAfPdWindow* const same = window;
  EXPECT(roi.mutable_pd_window_list(0) == same);
  EXPECT(&roi.pd_window_list(0) == same && roi.pd_window_list_size() == 1);
  RepeatedPtrField<zaf_debug::ZAfFrameInputPd::ZAfPdWindow>* const windows =
      roi.mutable_pd_window_list();
  windows->Add();
  delete windows->ReleaseLast();
  for (const auto& element : roi.pd_window_list()) EXPECT(&element == window);
  roi.clear_pd_window_list();
  EXPECT(roi.pd_window_list().empty());
}

static void Enums() {
  using z3abase::OperationModeType;
  OperationModeType mode = z3abase::OPERATION_INITIAL;
  EXPECT(z3abase::OperationModeType_Parse("OPERATION_PREVIEW", &mode));
  switch (mode) {
    case z3abase::OPERATION_PREVIEW:
      break;
    default:
      EXPECT(false);
  }
  EXPECT(z3abase::OperationModeType_Name(mode) == "OPERATION_PREVIEW");
  EXPECT(z3abase::OperationModeType_Name(1) == "OPERATION_PREVIEW");
  EXPECT(z3abase::OperationModeType_IsValid(5));
  static_assert(z3abase::OperationModeType_MIN == 0, "");
  static_assert(z3abase::OperationModeType_ARRAYSIZE ==
                    z3abase::OperationModeType_MAX + 1,
                "");
  static_assert(google::protobuf::is_proto_enum<OperationModeType>::value, "");
}

static void Values() {
  using Region = z3abase::RegionDimension;
  Region a;
  a.set_field_7(7);
  Region b(a);
  Region c;
  c = b;
  Region d(std::move(b));
  b = std::move(d);
  c.CopyFrom(b);
  c.MergeFrom(a);
  c.Swap(&d);
  using std::swap;
  swap(c, d);
  c.UnsafeArenaSwap(&d);
  EXPECT(d.field_7() == 7);
  std::vector<Region> regions(3, d);
  regions.push_back(std::move(d));
  std::map<int, Region> by_number;
  by_number[Region::kField7FieldNumber] = regions.back();
  std::unique_ptr<Region> made(regions[0].New());
  MessageLite* const base = made.get();
  base->CheckTypeAndMergeFrom(a);
  EXPECT(base->GetTypeName() == "z3a_debug_data.z3abase.RegionDimension");
  EXPECT(base->IsInitialized() && made->field_7() == 7);
  base->Clear();
  EXPECT(made->field_7() == 0);
}

static void Arenas() {
  Arena arena;
  auto* const frame = Arena::CreateMessage<z3abase::FrameInformation>(&arena);
  EXPECT(frame->GetArena() == &arena);
  EXPECT(frame->GetMaybeArenaPointer() == &arena);
  EXPECT(frame->mutable_window_size()->GetArena() == &arena);
  delete frame->release_window_size();
  frame->set_allocated_window_size(new z3abase::RegionDimension);
  z3abase::RegionDimension* const size =
      z3abase::RegionDimension::default_instance().New(&arena);
  frame->unsafe_arena_set_allocated_window_size(size);
  EXPECT(frame->unsafe_arena_release_window_size() == size);

  // Of the unit without arenas: it may lie on one, its children don't.
  auto* const output = zaf_debug::ZAfModFocusFinderOutput().New(&arena);
  EXPECT(output->GetArena() == nullptr);
  output->mutable_focus_range();
  delete output->release_focus_range();
  output->set_allocated_focus_range(new zaf_debug::ZAfRangeFloatType);
  output->clear_focus_range();
  EXPECT(!output->has_focus_range());
}

static void Bytes() {
  z3abase::FrameInformation frame;
  frame.mutable_window_size()->set_field_7(300);
  const std::string bytes = frame.SerializeAsString();
  EXPECT(bytes == "\x22\x03\x38\xac\x02");
  EXPECT(frame.ByteSizeLong() == 5 && frame.GetCachedSize() == 5);
  std::string written;
  {
    StringOutputStream stream(&written);
    CodedOutputStream output(&stream);
    frame.SerializeWithCachedSizes(&output);
  }
  EXPECT(written == bytes);
  std::uint8_t array[5];
  EXPECT(frame.SerializeWithCachedSizesToArray(array) == array + 5);
  EXPECT(frame.SerializeToArray(array, 5) && frame.AppendToString(&written));
  std::stringstream file;
  {
    OstreamOutputStream stream(&file);
    EXPECT(frame.SerializeToZeroCopyStream(&stream));
  }

  z3abase::FrameInformation read;
  IstreamInputStream stream(&file);
  EXPECT(read.ParseFromZeroCopyStream(&stream) && read.ParseFromString(bytes));
  EXPECT(read.ParseFromArray(array, 5));
  CodedInputStream input(array, 5);
  EXPECT(read.MergePartialFromCodedStream(&input));
  EXPECT(input.ConsumedEntireMessage());
  ArrayInputStream chunks(array, 5, 2);
  EXPECT(read.ParseFromZeroCopyStream(&chunks));
  EXPECT(read.window_size().field_7() == 300);
  EXPECT(!read.ParseFromString("\x05"));
}

int main() {
  GOOGLE_PROTOBUF_VERIFY_VERSION;
  Scalars();
  RepeatedScalars();
  Strings();
  SubMessages();
  Enums();
  Values();
  Arenas();
  Bytes();
  google::protobuf::ShutdownProtobufLibrary();
  std::puts("all is as clients expect");
}
