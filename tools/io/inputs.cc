#include "tools/io/inputs.h"

#include <algorithm>
#include <filesystem>
#include <sstream>
#include <system_error>

#include "tools/io/command_io.h"
#include "tools/wire/escape.h"

namespace vantiro {
namespace tools {
namespace {

namespace fs = std::filesystem;

std::string CannotRead(const std::string& path, const std::string& reason) {
  return "cannot read " + EscapeControls(path) + ": " + reason;
}

}  // namespace

void Inputs::AddTo(CLI::App* command) {
  command
      ->add_option("files", paths_,
                   "Records; - is standard input, and with --recursive a "
                   "folder is all files in it")
      ->type_name("FILE");
  command
      ->add_option("--files-from", list_,
                   "Read also the files that this file names, one in a line; - "
                   "is standard input")
      ->type_name("FILE");
  command->add_flag("-0,--null", null_,
                    "The names in --files-from end with a zero byte, as find "
                    "-print0 writes them");
  command->add_flag("-r,--recursive", recursive_,
                    "Read all files in folders and in their sub-folders, "
                    "sorted by name");
}

void Inputs::Find() {
  inputs_.clear();
  if (paths_.empty() && list_.empty()) throw CLI::RequiredError("files");
  for (const std::string& path : paths_) Add(path);
  if (!list_.empty()) AddList();
  const auto standard_inputs =
      std::count_if(inputs_.begin(), inputs_.end(),
                    [](const Input& input) { return input.file == "-"; }) +
      (list_ == "-" ? 1 : 0);
  if (standard_inputs > 1) {
    throw UsageError("standard input can be read only once");
  }
}

void Inputs::AddList() {
  std::istringstream list(CommandIo::ReadFile(list_));
  for (std::string path; std::getline(list, path, null_ ? '\0' : '\n');) {
    if (!path.empty()) Add(path);
  }
}

void Inputs::Add(const std::string& path) {
  std::error_code error;
  if (path == "-" || !fs::is_directory(path, error)) {
    inputs_.push_back({path, fs::path(path).filename().string(), ""});
  } else if (recursive_) {
    AddFolder(path, "");
  } else {
    inputs_.push_back(
        {path, "",
         CannotRead(path, "it is a folder; --recursive reads its files")});
  }
}

// Symbolic links to folders are not followed, since they can form a circle.
// What is neither a file nor a folder is left out: reading a pipe could wait
// for ever.
void Inputs::AddFolder(const std::string& folder,
                       const std::string& name_in_folder) {
  std::error_code error;
  std::vector<fs::directory_entry> entries;
  for (fs::directory_iterator next(folder, error), end; !error && next != end;
       next.increment(error)) {
    entries.push_back(*next);
  }
  if (error) {
    inputs_.push_back({folder, "", CannotRead(folder, error.message())});
  }
  std::sort(entries.begin(), entries.end());
  for (const fs::directory_entry& entry : entries) {
    const std::string path = entry.path().string();
    const std::string name =
        (fs::path(name_in_folder) / entry.path().filename()).string();
    std::error_code ignored;
    if (entry.is_directory(ignored)) {
      if (!entry.is_symlink(ignored)) AddFolder(path, name);
    } else if (entry.is_regular_file(ignored) || !entry.exists(ignored)) {
      inputs_.push_back({path, name, ""});
    }
  }
}

}  // namespace tools
}  // namespace vantiro
