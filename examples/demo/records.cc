#include "examples/demo/records.h"

#include <google/protobuf/arena.h>

#include <iostream>
#include <memory>
#include <string>

#include "examples/demo/describe.h"
#include "examples/demo/fill.h"
#include "examples/demo/record_file.h"

namespace vantiro::examples {
namespace {

namespace z3abase = z3a_debug_data::z3abase;
using google::protobuf::Arena;

// Reads a record from its file, prints what it holds, checks that it serialises
// to the same bytes, and returns them.
template <typename T>
std::string ShowRecord(const std::string& folder, Checks* checks) {
  T record;
  const std::string path = RecordPath(folder, record.GetTypeName());
  std::string bytes;
  const bool parses = ReadFile(path, &bytes) && record.ParseFromString(bytes);
  std::cout << path << ": " << bytes.size() << " bytes\n";
  if (parses) Describe(record, std::cout);
  checks->Expect(parses && record.SerializeAsString() == bytes,
                 "parses, and serialises to the same bytes");
  return bytes;
}

template <typename T>
std::string FillOnHeap() {
  const auto record = std::make_unique<T>();
  Fill(record.get());
  return record->SerializeAsString();
}

// On an arena the sub-messages lie there too, and all go with the arena: no
// destructor runs, nothing is to be deleted.
template <typename T>
std::string FillOnArena() {
  Arena arena;
  T* record = Arena::CreateMessage<T>(&arena);
  Fill(record);
  return record->SerializeAsString();
}

template <typename T>
void ShowOwnRecord(const std::string& folder, Checks* checks) {
  const std::string type_name = T::default_instance().GetTypeName();
  std::cout << "\n" << type_name << "\n";
  const std::string bytes = FillOnHeap<T>();
  checks->Expect(!bytes.empty() && FillOnArena<T>() == bytes,
                 "filled on the heap and on an arena: the same bytes");
  checks->Expect(WriteFile(RecordPath(folder, type_name), bytes) &&
                     ShowRecord<T>(folder, checks) == bytes,
                 "the bytes read are the bytes written");
}

}  // namespace

void ShowReferenceRecords(Checks* checks) {
  std::cout << "\n2. Records that others wrote\n\n";
  const std::string folder = ReferenceFolder();
  ShowRecord<z3abase::FaceRoiType>(folder, checks);
  ShowRecord<z3abase::FamiliarFaceTruetoneInput>(folder, checks);
  ShowRecord<z3abase::FrameInformation>(folder, checks);
  ShowRecord<z3abase::SensorRoiInfo>(folder, checks);
  ShowRecord<z3abase::ZAbcInformationToZHawb>(folder, checks);
  ShowRecord<z3abase::ZhawbInformation>(folder, checks);
  ShowRecord<z3a_debug_data::zabc::DebugExif>(folder, checks);
  ShowRecord<z3a_debug_data::zhawb::DebugExif>(folder, checks);
  ShowRecord<z3a_debug_data::zaf::DebugExif>(folder, checks);
}

void ShowOwnRecords(const std::string& folder, Checks* checks) {
  std::cout << "\n3. Debug records filled here\n";
  ShowOwnRecord<z3a_debug_data::zabc::DebugExif>(folder, checks);
  ShowOwnRecord<z3a_debug_data::zhawb::DebugExif>(folder, checks);
  ShowOwnRecord<z3a_debug_data::zaf::DebugExif>(folder, checks);
}

}  // namespace vantiro::examples
