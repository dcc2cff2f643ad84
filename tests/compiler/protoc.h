// The real protoc with the real plug-in.

#ifndef VANTIRO_TESTS_COMPILER_PROTOC_H_
#define VANTIRO_TESTS_COMPILER_PROTOC_H_

#include <map>
#include <string>
#include <vector>

namespace vantiro {
namespace tests {

// A new folder, which is the caller's to remove.
std::string MakeScratchFolder();

struct CommandRun {
  int exit_status;
  // Standard output and standard error.
  std::string said;
};

// Gives `command` to the shell.
CommandRun RunCommand(const std::string& command);

struct ProtocRun : CommandRun {
  // What was written, by file name.
  std::map<std::string, std::string> files;
};

// Compiles `files` of `folders`, in that order, into a folder that is empty at
// first and gone at last. `option` stands before its name.
ProtocRun RunProtoc(const std::vector<std::string>& folders,
                    const std::vector<std::string>& files,
                    const std::string& option = "--vantiro_out=");

}  // namespace tests
}  // namespace vantiro

#endif  // VANTIRO_TESTS_COMPILER_PROTOC_H_
