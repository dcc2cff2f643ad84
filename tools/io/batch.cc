#include "tools/io/batch.h"

#include <algorithm>
#include <exception>
#include <fstream>
#include <iostream>
#include <sstream>
#include <thread>
#include <utility>

#include "tools/io/ordered_work.h"
#include "tools/wire/escape.h"

namespace vantiro {
namespace tools {
namespace {

// The records of a stream that are handled at a time have this size together,
// or one more record.
constexpr size_t kTaskSize = size_t{1} << 16;

// `prefix` is for an error that does not name the input itself.
Report Unhandled(const RecordHandler& handler, const std::string& name,
                 const std::string& error, const std::string& prefix) {
  Report report;
  if (!handler.HandleError(name, error, &report)) {
    report.errors =
        "vantiro-records: " + prefix + EscapeControlsInLines(error) + '\n';
  }
  report.status = kWrongUse;
  return report;
}

}  // namespace

void Batch::AddStreamOptions(CLI::App* command) {
  command->add_flag("-d,--delimited", delimited_,
                    "Each input is a stream of records, each after its length "
                    "as a varint");
  command
      ->add_option("-j,--jobs", jobs_,
                   "How many threads to use; by default one for each processor")
      ->check(CLI::Range(1, 1024))
      ->type_name("COUNT");
}

void Batch::Run(const RecordHandler& handler) {
  size_t threads = jobs_;
  if (threads == 0) threads = std::max(1U, std::thread::hardware_concurrency());
  if (!delimited_) threads = std::min(threads, inputs().size());
  progress_ = std::make_unique<Progress>(inputs().size(), io_.quiet());
  std::cout << handler.Header();
  OrderedWork<Task, Result>(
      {[this] { return Next(); },
       [&](const Task& task) { return Work(handler, task); },
       [this](const Result& result) { Finish(result); }})
      .Run(threads);
  progress_->Hide();
  std::cout << handler.Footer();
  if (inputs().size() > 1 || total_ > 1) WriteFailures();
}

std::optional<Batch::Task> Batch::Next() {
  if (reader_.has_value()) return NextOfStream();
  if (next_input_ == inputs().size()) return std::nullopt;
  const Input& input = inputs()[next_input_++];
  Task task;
  task.input = &input;
  try {
    task.error = input.error;
    if (!task.error.empty() || !delimited_) return task;
    OpenStream(input.file);
    return NextOfStream();
  } catch (const UsageError& error) {
    task.error = error.what();
    return task;
  }
}

void Batch::OpenStream(const std::string& file) {
  if (io_.decodes()) {
    stream_ = std::make_unique<std::istringstream>(io_.ReadBytes(file));
  } else if (file != "-") {
    stream_ = std::make_unique<std::ifstream>(CommandIo::Open(file));
  }
  const bool is_standard_input = file == "-" && !io_.decodes();
  reader_.emplace(is_standard_input ? &std::cin : stream_.get());
  record_count_ = 0;
}

Batch::Task Batch::NextOfStream() {
  Task task;
  task.input = &inputs()[next_input_ - 1];
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

Batch::Result Batch::Work(const RecordHandler& handler,
                          const Task& task) const {
  Result result;
  result.ends_input = task.ends_input;
  const std::string& file = task.input->file;
  if (!task.error.empty()) {
    result.reports.push_back(Unhandled(handler, file, task.error, ""));
  } else if (!delimited_) {
    result.reports.push_back(WorkOnFile(handler, file));
  }
  for (size_t i = 0; i < task.records.size(); ++i) {
    const std::string name = file + '[' + std::to_string(task.first + i) + ']';
    result.reports.push_back(Handle(handler, name, task.records[i]));
  }
  if (task.fault.has_value()) {
    result.reports.emplace_back();
    CommandIo::ReportFault(file, task.fault, &result.reports.back());
  }
  return result;
}

Report Batch::WorkOnFile(const RecordHandler& handler,
                         const std::string& file) const {
  std::string bytes;
  try {
    bytes = io_.ReadBytes(file);
  } catch (const UsageError& error) {
    return Unhandled(handler, file, error.what(), "");
  }
  return Handle(handler, file, bytes);
}

Report Batch::Handle(const RecordHandler& handler, const std::string& name,
                     const std::string& bytes) const {
  try {
    Report report;
    handler.Handle(name, bytes, &report);
    return report;
  } catch (const std::exception& error) {
    const std::string prefix = HasSeveral() ? EscapeControls(name) + ": " : "";
    return Unhandled(handler, name, error.what(), prefix);
  }
}

void Batch::Finish(const Result& result) {
  progress_->Hide();
  for (const Report& report : result.reports) WriteReport(report);
  inputs_done_ += result.ends_input ? 1 : 0;
  progress_->Show(inputs_done_);
}

void Batch::WriteReport(const Report& report) {
  ++total_;
  unread_ += report.status == kWrongUse ? 1 : 0;
  damaged_ += report.is_damaged ? 1 : 0;
  io_.RaiseStatus(report.status);
  // Standard error is not buffered: what belongs before it is written first.
  if (!report.notes.empty() && HasSeveral()) std::cout.flush();
  if (!report.notes.empty()) std::cerr << report.notes;
  std::cout << report.output;
  if (report.errors.empty()) return;
  std::cout.flush();
  std::cerr << report.errors;
}

void Batch::WriteFailures() const {
  if (unread_ + damaged_ == 0) return;
  std::string counts;
  if (unread_ > 0) counts = std::to_string(unread_) + " not read";
  if (damaged_ > 0) {
    counts +=
        (counts.empty() ? "" : ", ") + std::to_string(damaged_) + " damaged";
  }
  std::cout.flush();
  std::cerr << "vantiro-records: " << unread_ + damaged_ << " of " << total_
            << (delimited_ ? " records" : " inputs") << " failed: " << counts
            << '\n';
}

}  // namespace tools
}  // namespace vantiro
