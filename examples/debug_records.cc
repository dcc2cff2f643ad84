#include "examples/debug_records.h"

#include <google/protobuf/arena.h>

#include <iostream>
#include <memory>
#include <sstream>

#include "examples/exposure_record.h"
#include "examples/focus_record.h"
#include "examples/record_file.h"
#include "examples/white_balance_record.h"

namespace vantiro::examples {
namespace {

using google::protobuf::Arena;

// How a component fills the record, and what a reader tells of it.
template <typename T>
struct Root {
  void (*fill)(T* record);
  std::string (*describe)(const T& record);
};

void PrintIndented(const std::string& text) {
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) {
    std::cout << "    " << line << "\n";
  }
}

template <typename T>
std::string FillOnHeap(const Root<T>& root) {
  const auto record = std::make_unique<T>();
  root.fill(record.get());
  return record->SerializeAsString();
}

// On an arena the sub-messages lie there too, and all go with the arena: no
// destructor runs, nothing is to be deleted.
template <typename T>
std::string FillOnArena(const Root<T>& root) {
  Arena arena;
  T* record = Arena::CreateMessage<T>(&arena);
  root.fill(record);
  return record->SerializeAsString();
}

// Reads a file, tells what it holds, and checks that it comes back the same.
template <typename T>
void ShowFile(const Root<T>& root, const std::string& path, Checks* checks) {
  std::string bytes;
  T record;
  const bool parses = ReadFile(path, &bytes) && record.ParseFromString(bytes);
  std::cout << "  " << path << ": " << bytes.size() << " bytes\n";
  if (parses) PrintIndented(root.describe(record));
  checks->Expect(parses && record.SerializeAsString() == bytes,
                 "read from the file, it serialises to the same bytes");
}

template <typename T>
void ShowRoot(const Root<T>& root, const std::string& folder, Checks* checks) {
  const std::string type_name = T::default_instance().GetTypeName();
  std::cout << "\n" << type_name << "\n";
  const std::string bytes = FillOnHeap(root);
  checks->Expect(!bytes.empty() && FillOnArena(root) == bytes,
                 "filled on the heap and on an arena: the same bytes");
  const std::string path = RecordPath(folder, type_name);
  std::string file;
  checks->Expect(
      WriteFile(path, bytes) && ReadFile(path, &file) && file == bytes,
      "written to a file");
  ShowFile(root, path, checks);
  ShowFile(root, RecordPath(ReferenceFolder(), type_name), checks);
}

}  // namespace

void ShowDebugRecords(const std::string& folder, Checks* checks) {
  std::cout << "\n3. The debug records, filled here and written elsewhere\n";
  ShowRoot<z3a_debug_data::zabc::DebugExif>({FillExposure, DescribeExposure},
                                            folder, checks);
  ShowRoot<z3a_debug_data::zhawb::DebugExif>(
      {FillWhiteBalance, DescribeWhiteBalance}, folder, checks);
  ShowRoot<z3a_debug_data::zaf::DebugExif>({FillFocus, DescribeFocus}, folder,
                                           checks);
}

}  // namespace vantiro::examples
