// What all commands share: how they are told what to do, and how they answer.

#ifndef VANTIRO_TOOLS_COMMANDS_SESSION_H_
#define VANTIRO_TOOLS_COMMANDS_SESSION_H_

#include <CLI/CLI.hpp>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "tools/record_tree.h"
#include "tools/schema.h"
#include "tools/style.h"

namespace vantiro {
namespace inspection {

// The program was used wrongly, or a file cannot be read; `what` says what to
// do about it. Ends the program with kWrongUse.
class UsageError : public std::runtime_error {
 public:
  using runtime_error::runtime_error;
};

enum ExitStatus { kFine = 0, kFound = 1, kWrongUse = 2 };

class Session {
 public:
  // Adds the files to read, which have to be given; `what` says what they are.
  static void AddFile(CLI::App* command, const char* what, std::string* file);
  static void AddFiles(CLI::App* command, std::vector<std::string>* files);
  // Adds --type.
  static CLI::Option* AddType(CLI::App* command, const char* what,
                              std::string* type);
  // Adds --color and --quiet.
  void AddOutputOptions(CLI::App* command);
  // Adds --hex, and those of AddOutputOptions.
  void AddInputOptions(CLI::App* command);

  // The bytes of a file, or of standard input for "-"; decoded if --hex was
  // given. Throws a UsageError.
  std::string ReadBytes(const std::string& file) const;
  // The same without decoding.
  static std::string ReadFile(const std::string& file);

  // The type of that name; without one, the root that the bytes are most likely
  // of. Throws a UsageError if none is convincing.
  const Descriptor& TypeOf(const std::string& name,
                           const std::string& bytes) const;

  // Says on standard error which type a file was taken for, if `name` did not
  // tell it.
  void NoteType(const std::string& file, const std::string& name,
                const Descriptor& type) const;

  // Says on standard error why and where `file` is damaged, if it is, and lets
  // the program end with kFound.
  void ReportFault(const std::string& file, const std::optional<Fault>& fault);
  // Lets the program end with `status`, unless it ends with a higher one.
  void Raise(ExitStatus status);

  Style style() const;
  bool quiet() const { return quiet_; }
  ExitStatus status() const { return status_; }

 private:
  bool hex_ = false;
  bool quiet_ = false;
  std::string color_ = "auto";
  ExitStatus status_ = kFine;
};

// Each adds one command to the program. Commands answer on standard output.
void AddAnnotate(CLI::App* program, Session* session);
void AddCheck(CLI::App* program, Session* session);
void AddDecode(CLI::App* program, Session* session);
void AddDiff(CLI::App* program, Session* session);
void AddEncode(CLI::App* program, Session* session);
void AddIdentify(CLI::App* program, Session* session);
void AddList(CLI::App* program, Session* session);
void AddScan(CLI::App* program, Session* session);
void AddShow(CLI::App* program, Session* session);
void AddSplit(CLI::App* program, Session* session);

}  // namespace inspection
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_COMMANDS_SESSION_H_
