// Writing with cached sizes that are stale, and to streams that are full.

#include <google/protobuf/io/zero_copy_stream_impl_lite.h>
#include <google/protobuf/stubs/logging.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "all_types.h"
#include "tests/conformance/model/encoding.h"
#include "tests/support/bytes.h"
#include "tests/support/types.h"

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
      : size_(size), bytes_(size + guard, kUntouched) {}
  ~Space() {
    EXPECT_TRUE(std::all_of(end(), bytes_.data() + bytes_.size(),
                            [](uint8_t byte) { return byte == kUntouched; }))
        << "bytes written beyond " << size_;
  }
  Space(const Space&) = delete;
  Space& operator=(const Space&) = delete;

  uint8_t* begin() { return bytes_.data(); }
  uint8_t* end() { return bytes_.data() + size_; }

 private:
  static constexpr uint8_t kUntouched = 0xa5;

  const size_t size_;
  std::vector<uint8_t> bytes_;
};

// With a guard first: without, a write past the end ruins the heap.
constexpr size_t kGuards[] = {4096, 0};

// Writes with cached sizes by the class. Tells whether there was space enough.
bool WriteTo(const DebugExif& message, Space* space, int chunk_size) {
  ArrayOutputStream stream(space->begin(),
                           static_cast<int>(space->end() - space->begin()),
                           chunk_size);
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

TEST(Writing, TakesLengthsFromTheLastByteSizeLong) {
  ZAfFrameInputSmartRoi roi;
  roi.add_field_4(1);
  roi.ByteSizeLong();
  roi.add_field_4(2);
  EXPECT_EQ(WriteToString(roi), "22 01 01 02");

  FrameInformation frame;
  frame.mutable_window_size()->set_field_7(5);
  frame.ByteSizeLong();
  frame.mutable_window_size()->set_field_7(300);
  EXPECT_EQ(WriteToString(frame), "22 02 38 ac 02");
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

// What makes the sizes of a small record stale; the first does not.
using Change = void (*)(DebugExif* record, ZAfFrameInput* frame);
constexpr Change kChanges[] = {
    [](DebugExif*, ZAfFrameInput*) {},
    [](DebugExif*, ZAfFrameInput* frame) { frame->set_field_2(-1); },
    [](DebugExif*, ZAfFrameInput* frame) {
      frame->mutable_stats_smart_roi()->mutable_field_4()->Resize(5000, ~0U);
    },
    [](DebugExif*, ZAfFrameInput* frame) {
      frame->mutable_field_27()->Resize(5000, 2);
    },
    [](DebugExif*, ZAfFrameInput* frame) {
      frame->set_sensor_name(std::string(5000, 'x'));
    },
    [](DebugExif* record, ZAfFrameInput*) {
      for (int i = 0; i < 1000; ++i) {
        record->add_frame_input_list()->set_field_2(-1);
      }
    },
    [](DebugExif* record, ZAfFrameInput*) {
      EXPECT_TRUE(MergeBytes(Delimited(2047, std::string(10000, 'x')), record));
    },
    [](DebugExif* record, ZAfFrameInput*) { record->Clear(); },
};

// Writes to an array by the runtime's operation. Some builds of the runtime
// find, when all is written, that the size was stale, and throw.
void WriteToArray(const DebugExif& message, Space* space) {
  const google::protobuf::LogSilencer silence;
  try {
    EXPECT_LE(message.SerializeWithCachedSizesToArray(space->begin()),
              space->end());
  } catch (const google::protobuf::FatalException&) {
  }
}

void ExpectWritesWithinBounds(const Change& change, size_t padding) {
  SCOPED_TRACE(testing::Message()
               << "change " << &change - kChanges << ", padding " << padding);
  DebugExif record = SmallRecord(padding);
  const size_t size = record.ByteSizeLong();
  const std::string fresh = WriteToString(record);
  change(&record, record.mutable_frame_input_list(1));
  WriteToString(record);
  for (const size_t guard : kGuards) {
    for (const int chunk_size : {1, 7, 16, 17, 64, 500, 4096}) {
      Space space(size, guard);
      WriteTo(record, &space, chunk_size);
    }
    Space space(size, guard);
    WriteToArray(record, &space);
    if (&change == &kChanges[0]) {
      EXPECT_EQ(ToHex({space.begin(), space.end()}), fresh);
    }
  }
}

TEST(Writing, StaleSizesNeverWriteOutOfBounds) {
  for (const Change& change : kChanges) {
    for (const size_t padding : {0U, 250U, 280U, 400U, 3000U}) {
      ExpectWritesWithinBounds(change, padding);
      if (HasFailure()) return;
    }
  }
}

// Long runs of scalars, wherever they cross the ends of what is written at
// once.
TEST(Writing, OfManyMessagesIsThatOfEach) {
  std::string floats;
  for (int number = 1; number < 16; ++number) {
    floats += Tag(number, kFixed32) + "\1\2\3\4";
  }
  DebugExif record;
  std::string wanted;
  for (size_t i = 0; i < 500; ++i) {
    DebugExif alone;
    ZAfFrameInput* const frame = alone.add_frame_input_list();
    frame->set_sensor_name(std::string(i % 97, 'x'));
    ASSERT_TRUE(frame->mutable_stats_aec()->ParseFromString(floats));
    wanted += alone.SerializeAsString();
    record.MergeFrom(alone);
  }
  EXPECT_TRUE(AreSame(record.SerializeAsString(), wanted));
}

TEST(Writing, ToAFullStreamIsAnErrorOfTheStream) {
  DebugExif record;
  ASSERT_TRUE(record.ParseFromString(
      ReadData("records/z3a_debug_data.zaf.DebugExif.bin")));
  const size_t size = record.ByteSizeLong();
  for (const size_t guard : kGuards) {
    for (const int chunk_size : {1, 7, 64, 8192}) {
      for (size_t missing = 0; missing <= size; missing += 1 + missing / 4) {
        Space space(size - missing, guard);
        EXPECT_EQ(WriteTo(record, &space, chunk_size), missing == 0)
            << missing << " of " << size << " bytes missing, chunks of "
            << chunk_size;
      }
    }
  }
}

}  // namespace
}  // namespace tests
}  // namespace vantiro
