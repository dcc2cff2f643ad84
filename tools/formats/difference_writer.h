// The differences between records, as text and as JSON.

#ifndef VANTIRO_TOOLS_FORMATS_DIFFERENCE_WRITER_H_
#define VANTIRO_TOOLS_FORMATS_DIFFERENCE_WRITER_H_

#include <memory>
#include <optional>
#include <ostream>
#include <string>

#include "tools/formats/style.h"
#include "tools/record/difference.h"
#include "tools/wire/fault.h"

namespace vantiro {
namespace tools {

// Two records that are compared.
struct ComparedRecords {
  std::string before_name;
  std::string after_name;
  std::string type;
  std::optional<Fault> before_fault;
  std::optional<Fault> after_fault;
};

// Writes what is different in one pair of records after the other.
class DifferenceWriter {
 public:
  DifferenceWriter() = default;
  DifferenceWriter(const DifferenceWriter&) = delete;
  DifferenceWriter& operator=(const DifferenceWriter&) = delete;
  virtual ~DifferenceWriter() = default;

  // Whether it asks for what is the same too.
  virtual bool TakesSame() const { return false; }

  virtual void Begin(const ComparedRecords& records) = 0;
  virtual void Write(const Difference& difference) = 0;
  virtual void End() = 0;
  // A file that is in one of two folders alone.
  virtual void WriteLone(const std::string& file, bool is_before) = 0;
  // Two files that cannot be compared.
  virtual void WriteError(const std::string& /*before_name*/,
                          const std::string& /*after_name*/,
                          const std::string& /*error*/) {}
  // After the last pair.
  virtual void Finish() {}
};

// A line for each difference; if there are several pairs, those with
// differences have their names above.
std::unique_ptr<DifferenceWriter> MakeDifferenceLines(bool has_several,
                                                      const Style& style,
                                                      std::ostream* out);

// Hunks of lines as diff -u has them, each line a path and its value; lines are
// numbered by the values of the record.
std::unique_ptr<DifferenceWriter> MakeUnifiedDifference(const Style& style,
                                                        std::ostream* out);

// JSON Lines: an object for each pair.
std::unique_ptr<DifferenceWriter> MakeDifferenceJson(std::ostream* out);

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_FORMATS_DIFFERENCE_WRITER_H_
