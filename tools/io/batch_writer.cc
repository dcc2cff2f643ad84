#include "tools/io/batch_writer.h"

#include <filesystem>
#include <iostream>
#include <system_error>

#include "tools/wire/escape.h"

namespace vantiro {
namespace tools {
namespace {

// The size is 0 if that of an input is not known.
Amount TotalOf(const std::vector<Input>& inputs) {
  Amount total;
  total.files = inputs.size();
  for (const Input& input : inputs) {
    std::error_code error;
    const auto size = std::filesystem::file_size(input.file, error);
    if (error && input.error.empty()) return {inputs.size(), 0};
    if (!error) total.size += size;
  }
  return total;
}

}  // namespace

BatchWriter::BatchWriter(const RecordHandler& handler,
                         const std::vector<Input>& inputs, BatchOutput* output,
                         CommandIo* io)
    : handler_(handler),
      inputs_(inputs),
      output_(*output),
      io_(*io),
      progress_(TotalOf(inputs), io->quiet()) {}

void BatchWriter::Begin() {
  output_.Begin(inputs_);
  if (!output_.is_folder()) output_.Write(handler_.Header());
}

void BatchWriter::Write(const BatchResult& result) {
  try {
    if (result.begins_input && !result.is_unread && output_.is_folder()) {
      output_.BeginInput(*result.input, handler_.Extension());
      output_.Write(handler_.Header());
    }
  } catch (const UsageError& error) {
    ReportError(error.what());
  }
  for (const Report& report : result.reports) WriteReport(report);
  try {
    if (result.ends_input) output_.EndInput();
  } catch (const UsageError& error) {
    output_.Drop();
    ReportError(error.what());
  }
  progress_.Add({result.ends_input ? size_t{1} : 0, result.size});
}

void BatchWriter::End() {
  progress_.Hide();
  if (output_.is_folder()) {
    std::cout << handler_.Footer();
  } else {
    output_.Write(handler_.Footer());
  }
  // If nothing could be read, a former output stays.
  if (total_ > 0 && unread_ == total_) output_.Drop();
  output_.End();
}

void BatchWriter::ReportError(const std::string& error) {
  ++unwritten_;
  io_.RaiseStatus(kWrongUse);
  progress_.Hide();
  std::cerr << "vantiro-records: " << EscapeControlsInLines(error) << '\n';
}

void BatchWriter::WriteReport(const Report& report) {
  ++total_;
  unread_ += report.status == kWrongUse ? 1 : 0;
  damaged_ += report.is_damaged ? 1 : 0;
  io_.RaiseStatus(report.status);
  if (!report.notes.empty() || !report.errors.empty() ||
      output_.is_standard_output()) {
    progress_.Hide();
  }
  // Standard error is not buffered: what belongs before it is written first.
  if (!report.notes.empty()) {
    if (total_ > 1) std::cout.flush();
    std::cerr << report.notes;
  }
  output_.Write(handler_.Collect(report.output));
  if (report.errors.empty()) return;
  std::cout.flush();
  std::cerr << report.errors;
}

void BatchWriter::WriteFailures(const char* what) const {
  std::string counts;
  const auto add = [&counts](size_t count, const char* of_kind) {
    if (count == 0) return;
    counts += (counts.empty() ? "" : ", ") + std::to_string(count) + of_kind;
  };
  add(unread_, " not read");
  add(damaged_, " damaged");
  add(unwritten_, " not written");
  if (counts.empty()) return;
  std::cout.flush();
  std::cerr << "vantiro-records: " << unread_ + damaged_ + unwritten_ << " of "
            << total_ << ' ' << what << " failed: " << counts << '\n';
}

}  // namespace tools
}  // namespace vantiro
