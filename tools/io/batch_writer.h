// Writes what a batch reports, and counts what failed.

#ifndef VANTIRO_TOOLS_IO_BATCH_WRITER_H_
#define VANTIRO_TOOLS_IO_BATCH_WRITER_H_

#include <cstddef>
#include <string>
#include <vector>

#include "tools/io/batch_output.h"
#include "tools/io/batch_task.h"
#include "tools/io/command_io.h"
#include "tools/io/progress.h"
#include "tools/io/record_handler.h"

namespace vantiro {
namespace tools {

class BatchWriter {
 public:
  // All have to outlive it.
  BatchWriter(const RecordHandler& handler, const std::vector<Input>& inputs,
              BatchOutput* output, CommandIo* io);

  // Before the first result. Throws a UsageError.
  void Begin();
  // In the order of the inputs.
  void Write(const BatchResult& result);
  // After the last result. Throws a UsageError.
  void End();

  // Writes how many of `what`, as in "records", failed, if any.
  void WriteFailures(const char* what) const;
  size_t total() const { return total_; }

 private:
  void WriteReport(const Report& report);
  void ReportError(const std::string& error);

  const RecordHandler& handler_;
  const std::vector<Input>& inputs_;
  BatchOutput& output_;
  CommandIo& io_;
  Progress progress_;
  size_t total_ = 0;
  size_t unread_ = 0;
  size_t damaged_ = 0;
  size_t unwritten_ = 0;
};

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_IO_BATCH_WRITER_H_
