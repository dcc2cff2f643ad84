// Writes what the fuzz targets start from: the reference vectors and records in
// the form of their inputs, every type's sub-messages moved about, and a
// dictionary of tags.
//
// usage: make_seeds FOLDER

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>

#include "tests/robustness/fuzz/sub_fields.h"
#include "tests/support/bytes.h"
#include "tests/support/types.h"
#include "tests/support/vectors.h"

namespace vantiro {
namespace tests {
namespace {

namespace fs = std::filesystem;

constexpr int kMaxFieldNumber = 58;

void Write(const fs::path& path, const std::string& bytes) {
  fs::create_directories(path.parent_path());
  std::ofstream(path, std::ios::binary) << bytes;
}

std::string Index(ptrdiff_t index) {
  return {static_cast<char>(index), static_cast<char>(index >> 8)};
}

std::string TypeIndex(const std::string& name) {
  return Index(FindType(name) - AllTypes().data());
}

// Where a type stands among all, sorted by their names.
std::string SortedIndex(const std::string& name) {
  return Index(
      std::count_if(AllTypes().begin(), AllTypes().end(),
                    [&name](const Type& type) { return type.name < name; }));
}

// In operations: parse into the first message, and again with the second
// input, which is then merged into the first.
std::string Operations(const Vector& vector) {
  const std::string a = vector.a.substr(0, 255);
  const std::string b = vector.b.substr(0, 255);
  const auto size = [](const std::string& bytes) {
    return std::string(1, static_cast<char>(bytes.size()));
  };
  return TypeIndex(vector.type_name) + std::string("\2\0\1", 3) + size(a) + a +
         std::string("\2\1\0", 3) + size(b) + b + std::string("\5\0\1", 3);
}

void WriteVectors(const fs::path& folder) {
  for (const Vector& vector : AllVectors()) {
    const bool in_blocks = vector.block > 0;
    Write(folder / "parse_fuzz" / vector.id,
          TypeIndex(vector.type_name) +
              std::string(in_blocks ? "\3\0" : "\0\0", 2) + vector.a);
    Write(folder / "inspection_fuzz" / vector.id,
          SortedIndex(vector.type_name) + vector.a);
    if (vector.has_b) {
      Write(folder / "operations_fuzz" / vector.id, Operations(vector));
    }
  }
}

// Of a type, in operations: each sub-message comes about on the heap, moves to
// the arena and back, is copied and cleared, and the messages change places.
std::string Moves(const Type& type) {
  std::string moves("\1\1\1", 3);
  const size_t count = SubFieldsOf(type.name).size();
  for (size_t i = 0; i < count; ++i) {
    const std::string field = Index(static_cast<ptrdiff_t>(i));
    for (const char* const move :
         {"\12\0\0", "\13\0\1", "\13\1\0", "\12\1\1", "\11\0\0"}) {
      moves += std::string(move, 3) + field;
    }
  }
  return moves + std::string("\7\0\1\6\2\0\10\2\1\7\0\2\5\1\2\4\0\0", 18);
}

void WriteMoves(const fs::path& folder) {
  for (const Type& type : AllTypes()) {
    Write(folder / "operations_fuzz" / type.name,
          TypeIndex(type.name) + Moves(type));
  }
}

void WriteRecords(const fs::path& folder) {
  for (const Type& type : AllTypes()) {
    const fs::path record = fs::path(VANTIRO_TEST_DATA) / "records" /
                            (std::string(type.name) + ".bin");
    if (!fs::exists(record)) continue;
    Write(folder / "parse_fuzz" / record.filename(),
          TypeIndex(type.name) + std::string("\0\0", 2) +
              ReadData("records/" + record.filename().string()));
    Write(folder / "inspection_fuzz" / record.filename(),
          SortedIndex(type.name) +
              ReadData("records/" + record.filename().string()));
  }
}

void WriteDictionary(const fs::path& path) {
  std::ofstream file(path);
  for (int number = 1; number <= kMaxFieldNumber; ++number) {
    for (const int type : {0, 2, 3, 4, 5}) {
      const int tag = number << 3 | type;
      char text[16];
      if (tag < 0x80) {
        std::snprintf(text, sizeof(text), "\"\\x%02x\"", tag);
      } else {
        std::snprintf(text, sizeof(text), "\"\\x%02x\\x%02x\"",
                      (tag & 0x7f) | 0x80, tag >> 7);
      }
      file << text << '\n';
    }
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
  const std::filesystem::path folder = argv[1];
  vantiro::tests::WriteVectors(folder);
  vantiro::tests::WriteRecords(folder);
  vantiro::tests::WriteMoves(folder);
  vantiro::tests::WriteDictionary(folder / "tags.dict");
  return 0;
}
