// Records as rows of comma-separated values.

#ifndef VANTIRO_TOOLS_FORMATS_RECORD_CSV_H_
#define VANTIRO_TOOLS_FORMATS_RECORD_CSV_H_

#include <ostream>
#include <string>

#include "tools/record/path.h"

namespace vantiro {
namespace tools {

// One row for each file if there are paths, otherwise one for each value. The
// last column is for an error.
class RecordCsv {
 public:
  RecordCsv(const Paths& paths, std::ostream* out)
      : paths_(paths), out_(*out) {}

  void WriteHeadings();
  // A cell is empty if its path leads to nothing that is in the record's bytes
  // or follows from them.
  void WriteRecord(const std::string& file, const Record& record,
                   const std::string& error);
  // The row of a file that is no record.
  void WriteError(const std::string& file, const std::string& error);

 private:
  const Paths& paths_;
  std::ostream& out_;
};

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_FORMATS_RECORD_CSV_H_
