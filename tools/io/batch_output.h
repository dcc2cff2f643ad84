// Where a batch writes its output.

#ifndef VANTIRO_TOOLS_IO_BATCH_OUTPUT_H_
#define VANTIRO_TOOLS_IO_BATCH_OUTPUT_H_

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "tools/io/inputs.h"
#include "tools/io/output_file.h"

namespace vantiro {
namespace tools {

// Standard output, one file, or a folder with a file for each input. All
// functions but the last two throw a UsageError.
class BatchOutput {
 public:
  // `path` is empty or - for standard output. A folder exists, or `path` ends
  // with a slash.
  explicit BatchOutput(std::string path);

  bool is_standard_output() const { return path_.empty(); }
  bool is_folder() const { return is_folder_; }

  // Before the first input: refuses to write over one of them.
  void Begin(const std::vector<Input>& inputs);
  // In a folder: begins the file of the input, which is named after it with
  // `extension`. Refuses to write a file again.
  void BeginInput(const Input& input, const std::string& extension);
  // In a folder: the file of the input is whole.
  void EndInput();
  // The file is whole.
  void End();

  void Write(const std::string& text);
  // Drops what was written since Begin or BeginInput.
  void Drop() { file_.reset(); }

 private:
  std::string path_;
  bool is_folder_ = false;
  std::optional<OutputFile> file_;
  // Which input each file of the folder was written for.
  std::map<std::string, std::string> written_;
};

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_IO_BATCH_OUTPUT_H_
