// A file in memory without reading it.

#ifndef VANTIRO_TOOLS_IO_MAPPED_FILE_H_
#define VANTIRO_TOOLS_IO_MAPPED_FILE_H_

#include <cstddef>
#include <string>
#include <string_view>

namespace vantiro {
namespace tools {

// The system reads parts of the file as they are used, and drops them when it
// needs memory.
class MappedFile {
 public:
  // If the file cannot be mapped, as a pipe or an empty file, `is_mapped` is
  // false.
  explicit MappedFile(const std::string& file);
  ~MappedFile();
  MappedFile(const MappedFile&) = delete;
  MappedFile& operator=(const MappedFile&) = delete;

  bool is_mapped() const { return bytes_ != nullptr; }
  std::string_view bytes() const {
    return {static_cast<const char*>(bytes_), size_};
  }

 private:
  void* bytes_ = nullptr;
  size_t size_ = 0;
};

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_IO_MAPPED_FILE_H_
