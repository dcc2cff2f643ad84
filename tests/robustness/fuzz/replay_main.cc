// Gives files, and all files of folders, to a fuzz target, one by one.

#include <csignal>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

namespace {

namespace fs = std::filesystem;

int Replay(const fs::path& path) {
  if (fs::is_directory(path)) {
    int count = 0;
    for (const auto& entry : fs::directory_iterator(path)) {
      count += Replay(entry.path());
    }
    return count;
  }
  std::ifstream file(path, std::ios::binary);
  const std::string bytes{std::istreambuf_iterator<char>(file),
                          std::istreambuf_iterator<char>()};
  LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t*>(bytes.data()),
                         bytes.size());
  return 1;
}

}  // namespace

int main(int argc, char* argv[]) {
  // A finding aborts, and CTest never takes that for the failure it expects.
  std::signal(SIGABRT, [](int) { std::_Exit(1); });
  int count = 0;
  for (int i = 1; i < argc; ++i) {
    if (!fs::exists(argv[i])) {
      std::fprintf(stderr, "there is no %s\n", argv[i]);
      return 2;
    }
    count += Replay(argv[i]);
  }
  std::printf("%d inputs replayed\n", count);
  return 0;
}
