// Runs a command for each record of its inputs.

#ifndef VANTIRO_TOOLS_IO_BATCH_H_
#define VANTIRO_TOOLS_IO_BATCH_H_

#include <CLI/CLI.hpp>
#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "tools/io/batch_output.h"
#include "tools/io/command_io.h"
#include "tools/io/delimited_reader.h"
#include "tools/io/inputs.h"
#include "tools/io/progress.h"
#include "tools/io/report.h"

namespace vantiro {
namespace tools {

// What a command does with a record. Several threads call these at once.
class RecordHandler {
 public:
  RecordHandler() = default;
  RecordHandler(const RecordHandler&) = delete;
  RecordHandler& operator=(const RecordHandler&) = delete;
  virtual ~RecordHandler() = default;

  // Of an output file's name: ".json".
  virtual std::string Extension() const { return ".txt"; }
  // These begin and end the output. In a folder each file has the header, and
  // the footer goes to standard output.
  virtual std::string Header() const { return ""; }
  virtual std::string Footer() const { return ""; }
  // An exception means that the record could not be handled.
  virtual void Handle(const std::string& name, const std::string& bytes,
                      Report* report) const = 0;
  // Takes what Handle gave as output, in the order of the records and by one
  // thread at a time; the result is written.
  virtual std::string Collect(const std::string& output) const {
    return output;
  }
  // A record that could not be read or handled. Returns whether the report has
  // the error; if not, it is written to standard error.
  virtual bool HandleError(const std::string& /*name*/,
                           const std::string& /*error*/,
                           Report* /*report*/) const {
    return false;
  }
};

class Batch {
 public:
  // `io` has to outlive it.
  explicit Batch(CommandIo* io) : io_(*io) {}

  // Adds the options of Inputs.
  void AddInputs(CLI::App* command) { inputs_.AddTo(command); }
  // Adds --delimited, --jobs and --output.
  void AddStreamOptions(CLI::App* command);

  // Finds the inputs. Throws as Inputs::Find does.
  void FindInputs();
  const std::vector<Input>& inputs() const { return inputs_.all(); }
  // Whether an output has to tell records apart.
  bool HasSeveral() const {
    return delimited_ || (inputs_.are_several() && !output_->is_folder());
  }

  // Whether there is a file for each input.
  bool WritesFolder() const { return output_->is_folder(); }

  // Handles all records, and writes the reports in the order of the inputs. An
  // input that cannot be read, or a record that cannot be handled, does not
  // stop the others.
  void Run(const RecordHandler& handler);

 private:
  // A file, or some records of a stream.
  struct Task {
    const Input* input = nullptr;
    // Of a stream: the number of the first record, the records, and what is
    // wrong behind them.
    size_t first = 0;
    std::vector<std::string> records;
    std::optional<Fault> fault;
    // Why the input cannot be read.
    std::string error;
    bool ends_input = true;
  };
  struct Result {
    const Input* input = nullptr;
    std::vector<Report> reports;
    bool is_unread = false;
    bool begins_input = true;
    bool ends_input = true;
  };

  std::optional<Task> Next();
  Task NextOfStream();
  void OpenStream(const std::string& file);
  Result Work(const RecordHandler& handler, const Task& task) const;
  Report WorkOnFile(const RecordHandler& handler,
                    const std::string& file) const;
  Report Handle(const RecordHandler& handler, const std::string& name,
                const std::string& bytes) const;
  // `prefix` is for an error that does not name the input itself.
  Report Unhandled(const RecordHandler& handler, const std::string& name,
                   const std::string& error, const std::string& prefix) const;
  void Finish(const RecordHandler& handler, const Result& result);
  void ReportError(const std::string& error);
  void WriteReport(const RecordHandler& handler, const Report& report);
  void WriteFailures() const;

  CommandIo& io_;
  Inputs inputs_;
  bool delimited_ = false;
  size_t jobs_ = 0;
  std::string output_path_;
  std::optional<BatchOutput> output_;

  size_t next_input_ = 0;
  std::unique_ptr<std::istream> stream_;
  std::optional<DelimitedReader> reader_;
  size_t record_count_ = 0;

  std::unique_ptr<Progress> progress_;
  size_t inputs_done_ = 0;
  size_t total_ = 0;
  size_t unread_ = 0;
  size_t damaged_ = 0;
  size_t unwritten_ = 0;
};

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_IO_BATCH_H_
