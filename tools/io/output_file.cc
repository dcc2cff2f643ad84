#include "tools/io/output_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <csignal>
#include <cstring>
#include <filesystem>

#include "tools/io/command_io.h"
#include "tools/wire/escape.h"

namespace vantiro {
namespace tools {
namespace {

namespace fs = std::filesystem;

constexpr int kSignals[] = {SIGINT, SIGTERM, SIGHUP};

// What a signal removes: the temporary file, or nothing if it is empty.
char path_to_remove[PATH_MAX];

extern "C" void RemoveTemporary(int signal) {
  if (path_to_remove[0] != '\0') unlink(path_to_remove);
  std::signal(signal, SIG_DFL);
  std::raise(signal);
}

void RemoveAtSignal(const std::string& path) {
  path_to_remove[path.copy(path_to_remove, PATH_MAX - 1)] = '\0';
  for (const int signal : kSignals) {
    // A signal that is ignored, as under nohup, stays so.
    const auto former =
        std::signal(signal, path.empty() ? SIG_DFL : RemoveTemporary);
    if (former == SIG_IGN) std::signal(signal, SIG_IGN);
  }
}

}  // namespace

OutputFile::OutputFile(const std::string& file) : name_(file), file_(file) {
  std::error_code error;
  const fs::path target = fs::canonical(file, error);
  if (!error) file_ = target.string();
  const fs::file_status status = fs::status(file_, error);
  if (fs::is_directory(status)) Fail(EISDIR);
  if (fs::exists(status) && !fs::is_regular_file(status)) {
    stream_ = std::fopen(file_.c_str(), "wb");
    if (stream_ == nullptr) Fail(errno);
    return;
  }
  OpenTemporary();
  if (fs::exists(status)) {
    fs::permissions(temporary_, status.permissions(), error);
  }
}

OutputFile::~OutputFile() {
  if (stream_ != nullptr) std::fclose(stream_);
  if (temporary_.empty()) return;
  unlink(temporary_.c_str());
  RemoveAtSignal("");
}

void OutputFile::OpenTemporary() {
  const fs::path target(file_);
  // A name may have 255 bytes.
  const std::string stem = target.filename().string().substr(0, 200);
  const std::string path =
      (target.parent_path() / ("." + stem + "." + std::to_string(getpid())))
          .string();
  RemoveAtSignal(path);
  const int descriptor =
      open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
  if (descriptor < 0) {
    const int error = errno;
    RemoveAtSignal("");
    Fail(error);
  }
  temporary_ = path;
  stream_ = fdopen(descriptor, "wb");
  if (stream_ == nullptr) Fail(errno);
}

void OutputFile::Write(std::string_view bytes) {
  const size_t size = std::fwrite(bytes.data(), 1, bytes.size(), stream_);
  if (size < bytes.size() && error_ == 0) error_ = errno;
}

void OutputFile::Commit() {
  std::FILE* const stream = stream_;
  stream_ = nullptr;
  if (std::fclose(stream) != 0 && error_ == 0) error_ = errno;
  if (error_ != 0) Fail(error_);
  if (temporary_.empty()) return;
  if (std::rename(temporary_.c_str(), file_.c_str()) != 0) Fail(errno);
  temporary_.clear();
  RemoveAtSignal("");
}

void OutputFile::Fail(int error) const {
  throw UsageError("cannot write " + EscapeControls(name_) + ": " +
                   std::strerror(error));
}

}  // namespace tools
}  // namespace vantiro
