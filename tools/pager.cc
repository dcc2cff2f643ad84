#include "tools/pager.h"

#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <sstream>
#include <string>

namespace vantiro {
namespace inspection {
namespace {

constexpr int kNoSuchCommand = 127;

// Whether there was a command for it.
bool Page(const std::string& text) {
  // Less ends by itself if all fits, shows colours and leaves the screen as is.
  setenv("LESS", "FRX", /*overwrite=*/0);
  // A reader who has seen enough closes the pager early.
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

}  // namespace inspection
}  // namespace vantiro
