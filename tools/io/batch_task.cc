#include "tools/io/batch_task.h"

#include <fstream>
#include <iostream>
#include <sstream>
#include <utility>

namespace vantiro {
namespace tools {
namespace {

// The records of a stream that are handled at a time have this size together,
// or one more record.
constexpr size_t kTaskSize = size_t{1} << 16;

}  // namespace

std::optional<BatchTask> BatchTasks::Next() {
  if (reader_.has_value()) return NextOfStream();
  if (next_input_ == inputs_.size()) return std::nullopt;
  const Input& input = inputs_[next_input_++];
  BatchTask task;
  task.input = &input;
  try {
    task.error = input.error;
    if (!task.error.empty() || !is_delimited_) return task;
    OpenStream(input.file);
    return NextOfStream();
  } catch (const UsageError& error) {
    task.error = error.what();
    return task;
  }
}

void BatchTasks::OpenStream(const std::string& file) {
  if (io_.decodes()) {
    stream_ = std::make_unique<std::istringstream>(io_.ReadBytes(file));
  } else if (file != "-") {
    stream_ = std::make_unique<std::ifstream>(CommandIo::Open(file));
  }
  const bool is_standard_input = file == "-" && !io_.decodes();
  reader_.emplace(is_standard_input ? &std::cin : stream_.get());
  record_count_ = 0;
}

BatchTask BatchTasks::NextOfStream() {
  BatchTask task;
  task.input = &inputs_[next_input_ - 1];
  task.first = record_count_;
  size_t size = 0;
  std::string record;
  task.ends_input = false;
  while (size < kTaskSize) {
    if (!reader_->Read(&record)) {
      task.ends_input = true;
      task.fault = reader_->fault();
      reader_.reset();
      break;
    }
    size += record.size();
    task.records.push_back(std::move(record));
  }
  record_count_ += task.records.size();
  return task;
}

}  // namespace tools
}  // namespace vantiro
