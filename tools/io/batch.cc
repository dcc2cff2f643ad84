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
  command
      ->add_option("-o,--output", output_path_,
                   "Write to this file; to a folder: a file for each input, "
                   "named after it. A file that cannot be written whole stays "
                   "as it was")
      ->type_name("OUT");
}

void Batch::FindInputs() {
  inputs_.Find();
  output_.emplace(output_path_);
  if (!output_->is_standard_output()) io_.SetHasOutputFile();
}

void Batch::Run(const RecordHandler& handler) {
  size_t threads = jobs_;
  if (threads == 0) threads = std::max(1U, std::thread::hardware_concurrency());
  if (!delimited_) threads = std::min(threads, inputs().size());
  progress_ = std::make_unique<Progress>(inputs().size(), io_.quiet());
  output_->Begin(inputs());
  if (!output_->is_folder()) output_->Write(handler.Header());
  OrderedWork<Task, Result>(
      {[this] { return Next(); },
       [&](const Task& task) { return Work(handler, task); },
       [&](const Result& result) { Finish(handler, result); }})
      .Run(threads);
  progress_->Hide();
  if (output_->is_folder()) {
    std::cout << handler.Footer();
  } else {
    output_->Write(handler.Footer());
  }
  // If nothing could be read, a former output stays.
  if (total_ > 0 && unread_ == total_) output_->Drop();
  output_->End();
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
  result.input = task.input;
  result.begins_input = task.first == 0;
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
  result.is_unread = !task.error.empty() ||
                     (!delimited_ && result.reports[0].status == kWrongUse);
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
    const bool is_one = inputs().size() == 1 && !HasSeveral();
    const std::string prefix = is_one ? "" : EscapeControls(name) + ": ";
    return Unhandled(handler, name, error.what(), prefix);
  }
}

Report Batch::Unhandled(const RecordHandler& handler, const std::string& name,
                        const std::string& error,
                        const std::string& prefix) const {
  Report report;
  // In a folder there is no file for an input that cannot be read.
  if (!handler.HandleError(name, error, &report) || output_->is_folder()) {
    report.errors =
        "vantiro-records: " + prefix + EscapeControlsInLines(error) + '\n';
  }
  report.status = kWrongUse;
  return report;
}

void Batch::Finish(const RecordHandler& handler, const Result& result) {
  progress_->Hide();
  try {
    if (result.begins_input && !result.is_unread && output_->is_folder()) {
      output_->BeginInput(*result.input, handler.Extension());
      output_->Write(handler.Header());
    }
  } catch (const UsageError& error) {
    ReportError(error.what());
  }
  for (const Report& report : result.reports) WriteReport(handler, report);
  try {
    if (result.ends_input) output_->EndInput();
  } catch (const UsageError& error) {
    output_->Drop();
    ReportError(error.what());
  }
  inputs_done_ += result.ends_input ? 1 : 0;
  progress_->Show(inputs_done_);
}

void Batch::ReportError(const std::string& error) {
  ++unwritten_;
  io_.RaiseStatus(kWrongUse);
  std::cerr << "vantiro-records: " << EscapeControlsInLines(error) << '\n';
}

void Batch::WriteReport(const RecordHandler& handler, const Report& report) {
  ++total_;
  unread_ += report.status == kWrongUse ? 1 : 0;
  damaged_ += report.is_damaged ? 1 : 0;
  io_.RaiseStatus(report.status);
  // Standard error is not buffered: what belongs before it is written first.
  if (!report.notes.empty() && HasSeveral()) std::cout.flush();
  if (!report.notes.empty()) std::cerr << report.notes;
  output_->Write(handler.Collect(report.output));
  if (report.errors.empty()) return;
  std::cout.flush();
  std::cerr << report.errors;
}

void Batch::WriteFailures() const {
  std::string counts;
  const auto add = [&counts](size_t count, const char* what) {
    if (count == 0) return;
    counts += (counts.empty() ? "" : ", ") + std::to_string(count) + what;
  };
  add(unread_, " not read");
  add(damaged_, " damaged");
  add(unwritten_, " not written");
  if (counts.empty()) return;
  std::cout.flush();
  std::cerr << "vantiro-records: " << unread_ + damaged_ + unwritten_ << " of "
            << total_ << (delimited_ ? " records" : " inputs")
            << " failed: " << counts << '\n';
}

}  // namespace tools
}  // namespace vantiro
