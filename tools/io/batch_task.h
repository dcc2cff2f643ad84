// The parts in which a batch is worked on.

#ifndef VANTIRO_TOOLS_IO_BATCH_TASK_H_
#define VANTIRO_TOOLS_IO_BATCH_TASK_H_

#include <cstddef>
#include <istream>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "tools/io/command_io.h"
#include "tools/io/delimited_reader.h"
#include "tools/io/inputs.h"
#include "tools/io/report.h"
#include "tools/wire/fault.h"

namespace vantiro {
namespace tools {

// A file, or some records of a stream.
struct BatchTask {
  const Input* input = nullptr;
  // Of a stream: the number of the first record, the records, and what is wrong
  // behind them.
  size_t first = 0;
  std::vector<std::string> records;
  std::optional<Fault> fault;
  // Why the input cannot be read.
  std::string error;
  bool ends_input = true;
};

struct BatchResult {
  const Input* input = nullptr;
  std::vector<Report> reports;
  // Of the input's bytes in the task.
  size_t size = 0;
  bool is_unread = false;
  bool begins_input = true;
  bool ends_input = true;
};

class BatchTasks {
 public:
  // All have to outlive it.
  BatchTasks(const std::vector<Input>& inputs, bool is_delimited,
             const CommandIo& io)
      : inputs_(inputs), is_delimited_(is_delimited), io_(io) {}

  // In the order of the inputs.
  std::optional<BatchTask> Next();

 private:
  BatchTask NextOfStream();
  void OpenStream(const std::string& file);

  const std::vector<Input>& inputs_;
  const bool is_delimited_;
  const CommandIo& io_;
  size_t next_input_ = 0;
  // The stream that is being read, unless it is standard input.
  std::unique_ptr<std::istream> stream_;
  std::optional<DelimitedReader> reader_;
  size_t record_count_ = 0;
};

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_IO_BATCH_TASK_H_
