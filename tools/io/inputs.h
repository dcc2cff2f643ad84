// The inputs of a command that takes several.

#ifndef VANTIRO_TOOLS_IO_INPUTS_H_
#define VANTIRO_TOOLS_IO_INPUTS_H_

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

namespace vantiro {
namespace tools {

struct Input {
  // The path as given, or as found in a folder; - is standard input.
  std::string file;
  // The path within the folder that was given; otherwise the file's name.
  std::string name_in_folder;
  // Why it cannot be read, if that is known without reading it.
  std::string error;
};

class Inputs {
 public:
  // Adds the argument FILE..., --files-from, --null and --recursive.
  void AddTo(CLI::App* command);

  // Finds the inputs: those of the command line in its order, then those of the
  // list. Files in a folder are sorted by name. Throws a UsageError, or CLI11's
  // RequiredError if no input is named.
  void Find();

  const std::vector<Input>& all() const { return inputs_; }
  // Whether the output has to tell inputs apart. A list or a folder counts as
  // several inputs, however many are in it.
  bool are_several() const {
    return inputs_.size() > 1 || !list_.empty() || recursive_;
  }

 private:
  void AddList();
  void Add(const std::string& path);
  void AddFolder(const std::string& folder, const std::string& name_in_folder);

  std::vector<std::string> paths_;
  std::string list_;
  bool null_ = false;
  bool recursive_ = false;
  std::vector<Input> inputs_;
};

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_IO_INPUTS_H_
