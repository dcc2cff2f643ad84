// Records as rows of comma-separated values.

#ifndef VANTIRO_TOOLS_FORMATS_RECORD_CSV_H_
#define VANTIRO_TOOLS_FORMATS_RECORD_CSV_H_

#include <string>

#include "tools/formats/json.h"
#include "tools/record/path.h"

namespace vantiro {
namespace tools {

// Appends one row for each file if there are paths, otherwise one for each
// value; or one for each element of a repeated field. The last column is for an
// error.
class RecordCsv {
 public:
  // Messages in cells are JSON.
  RecordCsv(const Paths& paths, const JsonOptions& options, std::string* text)
      : paths_(paths), options_(options), text_(*text) {}
  // The second column is for an element.
  void SetHasElements() { has_elements_ = true; }

  void AddHeadings();
  // A cell is empty if its path leads to nothing that is in the record's bytes
  // or follows from them.
  void AddRecord(const std::string& file, const Record& record,
                 const std::string& error);
  // A row for the element that `element` and the paths lead to.
  void AddElement(const std::string& file, const std::string& element,
                  const Record& record, const std::string& error);
  // The row of a file that is no record.
  void AddError(const std::string& file, const std::string& error);

 private:
  const Paths& paths_;
  const JsonOptions options_;
  std::string& text_;
  bool has_elements_ = false;
};

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_FORMATS_RECORD_CSV_H_
