#include "tools/io/pager.h"

#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <sstream>
#include <string>

namespace vantiro {
namespace tools {
namespace {

constexpr int kNoSuchCommand = 127;

// False if there is no such command.
bool Page(const std::string& text) {
  // less then ends at once if all fits on the screen, and shows colours.
  setenv("LESS", "FRX", /*overwrite=*/0);
  // The user may close the pager before it has read everything.
  const auto former = std::signal(SIGPIPE, SIG_IGN);
  std::FILE* const pager = popen("eval \"${PAGER:-less 2>/dev/null}\"", "w");
  if (pager == nullptr) return false;
  std::fwrite(text.data(), 1, text.size(), pager);
  const int status = pclose(pager);
  std::signal(SIGPIPE, former);
  return !WIFEXITED(status) || WEXITSTATUS(status) != kNoSuchCommand;
}

}  // namespace

void WritePaged(const std::function<void(std::ostream* out)>& write) {
  if (isatty(STDOUT_FILENO) == 0) {
    write(&std::cout);
    return;
  }
  std::ostringstream text;
  write(&text);
  if (!Page(text.str())) std::cout << text.str();
}

}  // namespace tools
}  // namespace vantiro
