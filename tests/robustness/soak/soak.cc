// Writes and reads records of all roots for a long time, and watches that
// memory stays flat.
//
// usage: soak [RECORDS [SECONDS]]: ends after so many records, or so long.

#include <google/protobuf/arena.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <cinttypes>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include "tests/support/bytes.h"
#include "tests/support/merge.h"
#include "tests/support/types.h"

namespace vantiro {
namespace tests {
namespace {

constexpr std::array<const char*, 16> kRoots = {
    "z3a_debug_data.zabc.DebugExif",
    "z3a_debug_data.zabc.DebugCompact",
    "z3a_debug_data.zabc.ZabcVideoMetadata",
    "z3a_debug_data.zabc.ZabcStatsLogging",
    "z3a_debug_data.zhawb.DebugExif",
    "z3a_debug_data.zhawb.DebugString",
    "z3a_debug_data.zhawb.ZHAWBDebugLoggingBlob",
    "z3a_debug_data.zhawb.ZHAWBDebugVideoBlob",
    "z3a_debug_data.zaf.DebugExif",
    "z3a_debug_data.zaf.ZAfExifDebugOutput",
    "z3a_debug_data.zaf.ZAfVideoMetadata",
    "z3a_debug_data.zaf.ZAfStatsLogging",
    "z3a_debug_data.zaf.ZAfDebugUi",
    "zaf.ZAfMultiDepthFaceDeblurInfo",
    "zaf.ZAfTargetFocusInfo",
    "z3a_debug_data.zatm.DebugExif",
};

struct Root {
  const Type* type;
  std::string bytes;
};

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
// A sanitizer holds back what is freed.
constexpr bool kWatchesMemory = false;
#else
constexpr bool kWatchesMemory = true;
#endif
constexpr int64_t kGrowthBound = 1024;

// What of this process is in memory, in KiB.
int64_t ResidentSize() {
  std::ifstream statm("/proc/self/statm");
  int64_t all = 0;
  int64_t resident = 0;
  statm >> all >> resident;
  return resident * (sysconf(_SC_PAGESIZE) / 1024);
}

// Field 1000, a varint: no class declares it. Of the same size for all values.
std::string UnknownField(int value) {
  std::string bytes = "\xc0\x3e";
  for (int shift = 0; shift < 28; shift += 7) {
    bytes += static_cast<char>(((value >> shift) & 0x7f) | 0x80);
  }
  return bytes + '\1';
}

// Makes a record of `root` twice, by merging messages and by reading the bytes
// one behind the other, and reads back what it writes. Gives its size, 0 if the
// two are not alike.
size_t WriteAndRead(const Root& root, int number, Arena* arena) {
  const Type& type = *root.type;
  std::vector<std::unique_ptr<MessageLite>> owned;
  const auto create = [&]() -> MessageLite* {
    MessageLite* const message = type.create(arena);
    if (arena == nullptr) owned.emplace_back(message);
    return message;
  };
  const std::string mark = UnknownField(number);
  MessageLite* const source = create();
  MessageLite* const merged = create();
  MessageLite* const read = create();
  MessageLite* const copy = create();
  if (!source->ParseFromString(root.bytes)) return 0;
  type.copy_from(merged, *source);
  type.merge_from(merged, *source);
  if (!MergeBytes(mark, merged)) return 0;
  if (!read->ParseFromString(root.bytes + root.bytes + mark)) return 0;
  const std::string written = merged->SerializeAsString();
  if (read->SerializeAsString() != written) return 0;
  // Once more into the same object, and through a swap.
  if (!read->ParseFromString(written)) return 0;
  type.swap(read, copy);
  type.copy_from(source, *copy);
  return source->SerializeAsString() == written ? written.size() : 0;
}

// Records on the heap, on an arena of their own, and on one that is reset.
size_t WriteAndReadSomewhere(const Root& root, int number, Arena* reused) {
  if (number % 3 == 0) return WriteAndRead(root, number, nullptr);
  if (number % 3 == 1) {
    Arena arena;
    return WriteAndRead(root, number, &arena);
  }
  const size_t size = WriteAndRead(root, number, reused);
  reused->Reset();
  return size;
}

int Run(int records, double seconds) {
  std::vector<Root> roots;
  for (const char* const name : kRoots) {
    roots.push_back(
        {FindType(name), ReadData("records/" + std::string(name) + ".bin")});
    if (roots.back().bytes.empty()) {
      std::printf("soak: no record of %s\n", name);
      return 1;
    }
  }
  using Clock = std::chrono::steady_clock;
  const Clock::time_point start = Clock::now();
  const auto elapsed = [start] {
    return std::chrono::duration<double>(Clock::now() - start).count();
  };
  const int warm_up = records / 4;
  int64_t resident = 0;
  size_t bytes = 0;
  Arena reused;
  int number = 0;
  for (; number < records && (number <= warm_up || elapsed() < seconds);
       ++number) {
    if (number == warm_up) resident = ResidentSize();
    const Root& root = roots[static_cast<size_t>(number) % roots.size()];
    const size_t size = WriteAndReadSomewhere(root, number, &reused);
    if (size == 0) {
      std::printf("soak: record %d, %s: not what was written\n", number,
                  root.type->name);
      return 1;
    }
    bytes += size;
  }
  const int64_t grown = ResidentSize() - resident;
  std::printf(
      "soak: %d records of %zu roots, %.1f MiB, %.1f s; resident %" PRId64
      " KiB after %d records, %+" PRId64 " KiB at the end%s\n",
      number, roots.size(), static_cast<double>(bytes) / (1 << 20), elapsed(),
      resident, warm_up, grown,
      kWatchesMemory ? "" : " (not judged under a sanitizer)");
  if (kWatchesMemory && grown > kGrowthBound) {
    std::printf("soak: memory grew by more than %" PRId64 " KiB\n",
                kGrowthBound);
    return 1;
  }
  return 0;
}

}  // namespace
}  // namespace tests
}  // namespace vantiro

int main(int argc, char* argv[]) {
  const int64_t records = argc > 1 ? std::strtoll(argv[1], nullptr, 10) : 30000;
  const double seconds = argc > 2 ? std::strtod(argv[2], nullptr) : 3600;
  if (records < 1 || records > 1000000000 || seconds <= 0) {
    std::fprintf(stderr, "usage: soak [RECORDS [SECONDS]]\n");
    return 2;
  }
  return vantiro::tests::Run(static_cast<int>(records), seconds);
}
