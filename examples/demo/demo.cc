// usage: demo [FOLDER]
//
// Shows what the library does, and checks it: exits with 1 if a check fails.
// The records that it writes are kept if a folder for them is given.

#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <string>
#include <system_error>

#include "examples/demo/checks.h"
#include "examples/demo/first_steps.h"
#include "examples/demo/records.h"

namespace {

int Show(const std::string& folder) {
  vantiro::examples::Checks checks;
  vantiro::examples::ShowFirstSteps(&checks);
  vantiro::examples::ShowReferenceRecords(&checks);
  vantiro::examples::ShowOwnRecords(folder, &checks);
  std::cout << (checks.all_hold() ? "\nAll checks hold.\n"
                                  : "\nNot all checks hold.\n");
  return checks.all_hold() ? 0 : 1;
}

int ShowInTemporaryFolder() {
  std::string folder = std::filesystem::temp_directory_path() / "demo-XXXXXX";
  if (mkdtemp(folder.data()) == nullptr) {
    std::cerr << "demo: cannot make a temporary folder\n";
    return 2;
  }
  const int status = Show(folder);
  std::filesystem::remove_all(folder);
  return status;
}

int ShowInFolder(const std::string& folder) {
  std::error_code error;
  std::filesystem::create_directories(folder, error);
  if (error) {
    std::cerr << "demo: " << folder << ": " << error.message() << "\n";
    return 2;
  }
  const int status = Show(folder);
  std::cout << "To see a record byte by byte:\n  ./run build\n"
            << "  build/tools/vantiro-records annotate " << folder
            << "/z3a_debug_data.zabc.DebugExif.bin\n";
  return status;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc > 2) {
    std::cerr << "usage: demo [FOLDER]\n";
    return 2;
  }
  return argc == 2 ? ShowInFolder(argv[1]) : ShowInTemporaryFolder();
}
