// Writing with cached sizes that are stale, and to streams that are full.

#include <google/protobuf/io/zero_copy_stream_impl_lite.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>

#include "all_units.h"
#include "tests/conformance/wire/log.h"
#include "tests/conformance/wire/reading.h"
#include "tests/support/merge.h"

namespace vantiro {
namespace tests {
namespace {

using google::protobuf::io::ArrayOutputStream;
using google::protobuf::io::StringOutputStream;
using z3a_debug_data::z3abase::FrameInformation;
using z3a_debug_data::zaf::DebugExif;
using z3a_debug_data::zaf::ZAfFrameInput;
using z3a_debug_data::zaf::ZAfFrameInputSmartRoi;

// Space on the heap of just `size` bytes, so that AddressSanitizer sees any
// write past it; or with more behind it, which has to stay as it is.
class Space {
 public:
  Space(size_t size, size_t guard)
      : size_(size), guard_(guard), bytes_(new uint8_t[size + guard]) {
    std::fill_n(bytes_.get(), size + guard, kUntouched);
  }
  ~Space() {
    const auto touched =
        std::count_if(bytes_.get() + size_, bytes_.get() + size_ + guard_,
                      [](uint8_t byte) { return byte != kUntouched; });
    EXPECT_EQ(touched, 0) << "bytes written beyond " << size_;
  }
  Space(const Space&) = delete;
  Space& operator=(const Space&) = delete;

  uint8_t* begin() { return bytes_.get(); }
  uint8_t* end() { return bytes_.get() + size_; }

 private:
  static constexpr uint8_t kUntouched = 0xa5;

  const size_t size_;
  const size_t guard_;
  const std::unique_ptr<uint8_t[]> bytes_;
};

// With a guard first: without, a write past the end ruins the heap.
constexpr size_t kGuards[] = {4096, 0};

// Writes with cached sizes by the class. Gives whether there was room.
template <typename T>
bool WriteTo(const T& message, Space* space, int block) {
  ArrayOutputStream stream(
      space->begin(), static_cast<int>(space->end() - space->begin()), block);
  CodedOutputStream output(&stream);
  message.SerializeWithCachedSizes(&output);
  return !output.HadError();
}

template <typename T>
std::string WriteToString(const T& message) {
  std::string bytes;
  {
    StringOutputStream stream(&bytes);
    CodedOutputStream output(&stream);
    message.SerializeWithCachedSizes(&output);
  }
  return ToHex(bytes);
}

TEST(WireWriting, LengthsAreThoseOfTheLastByteSizeLong) {
  ZAfFrameInputSmartRoi roi;
  roi.add_field_4(1);
  roi.ByteSizeLong();
  roi.add_field_4(2);
  EXPECT_EQ(WriteToString(roi), "22 01 01 02");
  EXPECT_EQ(Written(roi), "22 02 01 02");

  FrameInformation frame;
  frame.mutable_window_size()->set_field_7(5);
  frame.ByteSizeLong();
  frame.mutable_window_size()->set_field_7(300);
  EXPECT_EQ(WriteToString(frame), "22 02 38 ac 02");
  EXPECT_EQ(Written(frame), "22 03 38 ac 02");
}

// `padding` decides how much of the record is written straight to the stream.
DebugExif SmallRecord(size_t padding) {
  DebugExif record;
  record.add_frame_input_list()->set_sensor_name(std::string(padding, 'x'));
  record.set_field_1(1);
  ZAfFrameInput* const frame = record.add_frame_input_list();
  frame->set_sensor_name("cam");
  frame->add_field_27(1.5f);
  frame->mutable_stats_smart_roi()->add_field_4(300);
  return record;
}

struct Change {
  const char* what;
  std::function<void(DebugExif*)> make;
};

const Change kChanges[] = {
    {"none", [](DebugExif*) {}},
    {"a longer varint",
     [](DebugExif* record) {
       record->mutable_frame_input_list(0)->set_field_2(-1);
     }},
    {"a longer list of varints",
     [](DebugExif* record) {
       record->mutable_frame_input_list(0)
           ->mutable_stats_smart_roi()
           ->mutable_field_4()
           ->Resize(5000, 0xffffffff);
     }},
    {"a longer list of floats",
     [](DebugExif* record) {
       record->mutable_frame_input_list(0)->mutable_field_27()->Resize(5000, 2);
     }},
    {"a longer string",
     [](DebugExif* record) {
       record->mutable_frame_input_list(0)->set_sensor_name(
           std::string(5000, 'x'));
     }},
    {"more records",
     [](DebugExif* record) {
       for (int i = 0; i < 1000; ++i) {
         record->add_frame_input_list()->set_field_2(-1);
       }
     }},
    {"more unknown bytes",
     [](DebugExif* record) {
       EXPECT_TRUE(
           MergeBytes("\xfa\x7f\x90\x4e" + std::string(10000, 'x'), record));
     }},
    {"nothing left", [](DebugExif* record) { record->Clear(); }},
};

// Writes to an array by the runtime's operation. Some builds of the runtime
// find, when all is written, that the size was stale, and throw.
void WriteToArray(const MessageLite& message, Space* space) {
  const Log log;
  try {
    EXPECT_LE(message.SerializeWithCachedSizesToArray(space->begin()),
              space->end());
  } catch (const google::protobuf::FatalException&) {
  }
}

void ExpectWritesWithinBounds(const Change& change, size_t padding) {
  DebugExif record = SmallRecord(padding);
  const size_t size = record.ByteSizeLong();
  const std::string fresh = WriteToString(record);
  change.make(&record);
  WriteToString(record);
  for (const size_t guard : kGuards) {
    for (const int block : {1, 7, 16, 17, 64, 500, 4096}) {
      Space space(size, guard);
      WriteTo(record, &space, block);
    }
    Space space(size, guard);
    WriteToArray(record, &space);
    if (&change == &kChanges[0]) {
      EXPECT_EQ(ToHex({space.begin(), space.end()}), fresh);
    }
  }
}

TEST(WireWriting, StaleSizesNeverWriteOutOfBounds) {
  for (const Change& change : kChanges) {
    for (const size_t padding : {0, 250, 280, 400, 3000}) {
      SCOPED_TRACE(std::string(change.what) + ", padding " +
                   std::to_string(padding));
      ExpectWritesWithinBounds(change, padding);
      if (HasFailure()) return;
    }
  }
}

// Long runs of scalars, wherever they cross the ends of what is written at
// once.
TEST(WireWriting, RecordsOfAnySizeAreThoseOfTheirParts) {
  std::string floats;
  for (char number = 1; number < 16; ++number) {
    floats += std::string(1, static_cast<char>(number << 3 | 5)) + "\1\2\3\4";
  }
  DebugExif record;
  std::string wanted;
  for (size_t i = 0; i < 500; ++i) {
    ZAfFrameInput frame;
    frame.set_sensor_name(std::string(i % 97, 'x'));
    ASSERT_TRUE(frame.mutable_stats_aec()->ParseFromString(floats));
    DebugExif alone;
    *alone.add_frame_input_list() = frame;
    wanted += alone.SerializeAsString();
    *record.add_frame_input_list() = frame;
  }
  EXPECT_EQ(ToHex(record.SerializeAsString()), ToHex(wanted));
}

TEST(WireWriting, AFullStreamIsAnErrorOfTheStream) {
  DebugExif record;
  ASSERT_TRUE(record.ParseFromString(
      ReadData("records/z3a_debug_data.zaf.DebugExif.bin")));
  const size_t size = record.ByteSizeLong();
  for (const size_t guard : kGuards) {
    for (const int block : {1, 7, 64, 8192}) {
      for (size_t missing = 0; missing <= size; missing += 1 + missing / 4) {
        Space space(size - missing, guard);
        EXPECT_EQ(WriteTo(record, &space, block), missing == 0)
            << missing << " of " << size << " bytes missing, blocks of "
            << block;
      }
    }
  }
}

}  // namespace
}  // namespace tests
}  // namespace vantiro
