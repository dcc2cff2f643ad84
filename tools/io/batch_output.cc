#include "tools/io/batch_output.h"

#include <filesystem>
#include <iostream>
#include <utility>

#include "tools/io/command_io.h"
#include "tools/wire/escape.h"

namespace vantiro {
namespace tools {
namespace {

namespace fs = std::filesystem;

void CheckIsNot(const std::string& file, const Input& input) {
  std::error_code error;
  if (fs::equivalent(file, input.file, error)) {
    throw UsageError("cannot write " + EscapeControls(file) +
                     ": it is an input");
  }
}

void MakeFolder(const fs::path& folder) {
  std::error_code error;
  fs::create_directories(folder, error);
  if (error) {
    throw UsageError("cannot create " + EscapeControls(folder.string()) + ": " +
                     error.message());
  }
}

}  // namespace

BatchOutput::BatchOutput(std::string path)
    : path_(path == "-" ? "" : std::move(path)) {
  std::error_code error;
  is_folder_ =
      !path_.empty() && (path_.back() == '/' || fs::is_directory(path_, error));
}

void BatchOutput::Begin(const std::vector<Input>& inputs) {
  if (is_folder_) MakeFolder(path_);
  if (is_folder_ || is_standard_output()) return;
  std::error_code error;
  if (fs::is_regular_file(path_, error)) {
    for (const Input& input : inputs) CheckIsNot(path_, input);
  }
  file_.emplace(path_);
}

void BatchOutput::BeginInput(const Input& input, const std::string& extension) {
  if (!is_folder_) return;
  fs::path name = input.file == "-" ? "stdin" : input.name_in_folder;
  const fs::path file = fs::path(path_) / name.replace_extension(extension);
  const auto [written, is_new] = written_.emplace(file.string(), input.file);
  if (!is_new) {
    throw UsageError(EscapeControls(input.file) + ": " +
                     EscapeControls(file.string()) + " is the output of " +
                     EscapeControls(written->second));
  }
  CheckIsNot(file.string(), input);
  MakeFolder(file.parent_path());
  file_.emplace(file.string());
}

void BatchOutput::EndInput() {
  if (is_folder_) End();
}

void BatchOutput::End() {
  if (!file_.has_value()) return;
  file_->Commit();
  file_.reset();
}

void BatchOutput::Write(const std::string& text) {
  if (is_standard_output()) {
    std::cout << text;
  } else if (file_.has_value()) {
    file_->Write(text);
  }
}

}  // namespace tools
}  // namespace vantiro
