#include "tools/io/batch.h"

#include <algorithm>
#include <exception>
#include <thread>

#include "tools/io/batch_writer.h"
#include "tools/io/ordered_work.h"
#include "tools/wire/escape.h"

namespace vantiro {
namespace tools {

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
  BatchTasks tasks(inputs(), delimited_, io_);
  BatchWriter writer(handler, inputs(), &*output_, &io_);
  writer.Begin();
  OrderedWork<BatchTask, BatchResult>(
      {[&] { return tasks.Next(); },
       [&](const BatchTask& task) { return Work(handler, task); },
       [&](const BatchResult& result) { writer.Write(result); }})
      .Run(threads);
  writer.End();
  if (inputs().size() > 1 || writer.total() > 1) {
    writer.WriteFailures(delimited_ ? "records" : "inputs");
  }
}

BatchResult Batch::Work(const RecordHandler& handler,
                        const BatchTask& task) const {
  BatchResult result;
  result.input = task.input;
  result.begins_input = task.first == 0;
  result.ends_input = task.ends_input;
  const std::string& file = task.input->file;
  if (!task.error.empty()) {
    result.reports.push_back(Unhandled(handler, file, task.error, ""));
  } else if (!delimited_) {
    result.reports.push_back(WorkOnFile(handler, file, &result.size));
  }
  for (size_t i = 0; i < task.records.size(); ++i) {
    const std::string name = file + '[' + std::to_string(task.first + i) + ']';
    result.reports.push_back(Handle(handler, name, task.records[i]));
    result.size += task.records[i].size();
  }
  result.is_unread = !task.error.empty() ||
                     (!delimited_ && result.reports[0].status == kWrongUse);
  if (task.fault.has_value()) {
    result.reports.emplace_back();
    CommandIo::ReportFault(file, task.fault, &result.reports.back());
  }
  return result;
}

Report Batch::WorkOnFile(const RecordHandler& handler, const std::string& file,
                         size_t* size) const {
  std::string bytes;
  try {
    bytes = io_.ReadBytes(file);
  } catch (const UsageError& error) {
    return Unhandled(handler, file, error.what(), "");
  }
  *size = bytes.size();
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

}  // namespace tools
}  // namespace vantiro
