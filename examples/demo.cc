// usage: demo [FOLDER]
//
// Shows what the library does, and checks it: exits with 1 if anything does not
// come back the same. The records that it writes are kept if a folder for them
// is given.

#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <string>
#include <system_error>

#include "examples/checks.h"
#include "examples/debug_records.h"
#include "examples/first_steps.h"
#include "examples/shared_records.h"

namespace {

int Show(const std::string& folder) {
  vantiro::examples::Checks checks;
  vantiro::examples::ShowFirstSteps(&checks);
  vantiro::examples::ShowSharedRecords(&checks);
  vantiro::examples::ShowDebugRecords(folder, &checks);
  std::cout << (checks.all_hold() ? "\nAll came back the same.\n"
                                  : "\nNot all came back the same.\n");
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
  return Show(folder);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc > 2) {
    std::cerr << "usage: demo [FOLDER]\n";
    return 2;
  }
  return argc == 2 ? ShowInFolder(argv[1]) : ShowInTemporaryFolder();
}
