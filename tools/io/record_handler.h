// What a command does with each of many records.

#ifndef VANTIRO_TOOLS_IO_RECORD_HANDLER_H_
#define VANTIRO_TOOLS_IO_RECORD_HANDLER_H_

#include <string>

#include "tools/io/report.h"

namespace vantiro {
namespace tools {

// Several threads call these at once.
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

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_IO_RECORD_HANDLER_H_
