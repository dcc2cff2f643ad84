// Runs a command for each record of its inputs.

#ifndef VANTIRO_TOOLS_IO_BATCH_H_
#define VANTIRO_TOOLS_IO_BATCH_H_

#include <CLI/CLI.hpp>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "tools/io/batch_output.h"
#include "tools/io/batch_task.h"
#include "tools/io/command_io.h"
#include "tools/io/inputs.h"
#include "tools/io/record_handler.h"
#include "tools/io/report.h"

namespace vantiro {
namespace tools {

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
  BatchResult Work(const RecordHandler& handler, const BatchTask& task) const;
  Report WorkOnFile(const RecordHandler& handler, const std::string& file,
                    size_t* size) const;
  Report Handle(const RecordHandler& handler, const std::string& name,
                const std::string& bytes) const;
  // `prefix` is for an error that does not name the input itself.
  Report Unhandled(const RecordHandler& handler, const std::string& name,
                   const std::string& error, const std::string& prefix) const;

  CommandIo& io_;
  Inputs inputs_;
  bool delimited_ = false;
  size_t jobs_ = 0;
  std::string output_path_;
  std::optional<BatchOutput> output_;
};

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_IO_BATCH_H_
