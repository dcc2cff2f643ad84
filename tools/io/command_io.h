// What commands share: common options, reading input, and reporting.

#ifndef VANTIRO_TOOLS_IO_COMMAND_IO_H_
#define VANTIRO_TOOLS_IO_COMMAND_IO_H_

#include <CLI/CLI.hpp>
#include <fstream>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "tools/formats/style.h"
#include "tools/io/report.h"
#include "tools/schema/schema.h"
#include "tools/wire/fault.h"

namespace vantiro {
namespace tools {

// The program was used wrongly, or a file cannot be read or written. Ends the
// program with kWrongUse.
class UsageError : public std::runtime_error {
 public:
  using runtime_error::runtime_error;
};

class CommandIo {
 public:
  // Adds the required argument for one input file; `what` describes it.
  static void AddFile(CLI::App* command, const char* what, std::string* file);
  // Adds --type.
  static CLI::Option* AddType(CLI::App* command, const char* what,
                              std::string* type);
  // Adds --color and --quiet.
  void AddOutputOptions(CLI::App* command);
  // Adds --hex, --base64, --color and --quiet.
  void AddInputOptions(CLI::App* command);

  // The bytes of a file, or of standard input for "-"; decoded if --hex or
  // --base64 was given. Throws a UsageError.
  std::string ReadBytes(const std::string& file) const;
  // The same without decoding.
  static std::string ReadFile(const std::string& file);
  // Opens a file other than standard input. Throws a UsageError.
  static std::ifstream Open(const std::string& file);
  // Throws a UsageError.
  static void WriteFile(const std::string& file, std::string_view bytes);

  // The type of that name. If `name` is empty: the most likely root for
  // `bytes`. Throws a UsageError if no root is likely.
  const Descriptor& TypeOf(const std::string& name,
                           const std::string& bytes) const;

  // Notes which type was identified for `file`, unless `name` gave it.
  void ReportType(const std::string& file, const std::string& name,
                  const Descriptor& type, Report* report) const;
  // Reports the fault of `file`, if there is one; the program then ends with
  // kFound.
  static void ReportFault(const std::string& file,
                          const std::optional<Fault>& fault, Report* report);
  // The same two, written to standard error at once.
  void ReportType(const std::string& file, const std::string& name,
                  const Descriptor& type) const;
  void ReportFault(const std::string& file, const std::optional<Fault>& fault);
  // Sets the exit status, unless it is higher already.
  void RaiseStatus(ExitStatus status);

  // The output goes to a file, which has no colours unless --color says so.
  void SetHasOutputFile() { has_output_file_ = true; }
  Style style() const;
  bool quiet() const { return quiet_; }
  // Whether ReadBytes decodes hexadecimal or base64.
  bool decodes() const { return hex_ || base64_; }
  ExitStatus status() const { return status_; }

 private:
  bool hex_ = false;
  bool base64_ = false;
  bool quiet_ = false;
  bool has_output_file_ = false;
  std::string color_ = "auto";
  ExitStatus status_ = kSuccess;
};

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_IO_COMMAND_IO_H_
