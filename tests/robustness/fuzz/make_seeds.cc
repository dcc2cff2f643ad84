// Writes what the fuzz targets start from, in the form of their inputs: the
// reference vectors and records, and messages of every type.
//
// usage: make_seeds FOLDER

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>

#include "tests/conformance/model/samples.h"
#include "tests/support/bytes.h"
#include "tests/support/vectors.h"

namespace vantiro {
namespace tests {
namespace {

namespace fs = std::filesystem;

void Write(const fs::path& path, const std::string& bytes) {
  fs::create_directories(path.parent_path());
  std::ofstream(path, std::ios::binary) << bytes;
}

std::string TwoBytes(size_t value) {
  return {static_cast<char>(value), static_cast<char>(value >> 8)};
}

std::string TypeIndex(const Type& type) {
  return TwoBytes(static_cast<size_t>(&type - AllTypes().data()));
}

void WriteRecord(const fs::path& folder, const std::string& name,
                 const std::string& type_name, bool in_chunks,
                 const std::string& bytes) {
  const std::string type = TypeIndex(FindType(type_name));
  Write(folder / "parse_fuzz" / name,
        type + std::string(in_chunks ? "\7\0" : "\0\0", 2) + bytes);
  Write(folder / "inspection_fuzz" / name, type + bytes);
}

// Operation 2 of operations_fuzz: parses into a message.
std::string ParseSample(const Type& type, int slot, size_t seed) {
  const std::string record = Sample(type, seed);
  return std::string{2, static_cast<char>(slot), 0} + TwoBytes(record.size()) +
         record;
}

void WriteAll(const fs::path& folder) {
  for (const Vector& vector : AllVectors()) {
    WriteRecord(folder, vector.id, vector.type_name, vector.chunk_size > 0,
                vector.a);
  }
  for (const std::string& type : RecordTypes()) {
    WriteRecord(folder, type, type, false,
                ReadData("records/" + type + ".bin"));
  }
  for (const Type& type : AllTypes()) {
    Write(folder / "operations_fuzz" / type.name,
          TypeIndex(type) + ParseSample(type, 0, 1) + ParseSample(type, 1, 2));
  }
}

}  // namespace
}  // namespace tests
}  // namespace vantiro

int main(int argc, char* argv[]) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: make_seeds FOLDER\n");
    return 2;
  }
  vantiro::tests::WriteAll(argv[1]);
  return 0;
}
