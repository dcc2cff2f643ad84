// Writes the manual page and the completion of vantiro-records.

#include <fstream>
#include <iostream>

#include "tools/manual/completion.h"
#include "tools/manual/man_page.h"
#include "tools/program/program.h"

int main(int argc, char** argv) {
  if (argc != 4) {
    std::cerr << "usage: make_manual VERSION MAN_PAGE COMPLETION\n";
    return 2;
  }
  vantiro::tools::CommandIo io;
  const auto program = vantiro::tools::MakeProgram(&io);
  std::ofstream page(argv[2]);
  vantiro::tools::WriteManPage(*program, argv[1], &page);
  std::ofstream completion(argv[3]);
  vantiro::tools::WriteCompletion(*program, &completion);
  if (page.flush() && completion.flush()) return 0;
  std::cerr << "make_manual: cannot write " << argv[2] << " or " << argv[3]
            << "\n";
  return 1;
}
