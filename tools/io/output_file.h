// A file that is there whole, or as it was before.

#ifndef VANTIRO_TOOLS_IO_OUTPUT_FILE_H_
#define VANTIRO_TOOLS_IO_OUTPUT_FILE_H_

#include <cstdio>
#include <string>
#include <string_view>

namespace vantiro {
namespace tools {

// Writes a temporary file in the folder of `file`, which Commit renames to
// `file`. Without Commit, and after SIGINT, SIGTERM or SIGHUP, it is removed.
// What is there and is no regular file, as a pipe or /dev/null, is written
// directly. One at a time can exist.
class OutputFile {
 public:
  // Throws a UsageError.
  explicit OutputFile(const std::string& file);
  ~OutputFile();
  OutputFile(const OutputFile&) = delete;
  OutputFile& operator=(const OutputFile&) = delete;

  // Errors of writing are thrown by Commit.
  void Write(std::string_view bytes);
  // Throws a UsageError.
  void Commit();

 private:
  void OpenTemporary();
  [[noreturn]] void Fail(int error) const;

  const std::string name_;
  // With symbolic links followed.
  std::string file_;
  // Empty if `file_` is written directly.
  std::string temporary_;
  std::FILE* stream_ = nullptr;
  // The number of the first error of Write.
  int error_ = 0;
};

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_IO_OUTPUT_FILE_H_
