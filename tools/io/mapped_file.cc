#include "tools/io/mapped_file.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace vantiro {
namespace tools {

MappedFile::MappedFile(const std::string& file) {
  const int descriptor = open(file.c_str(), O_RDONLY | O_CLOEXEC);
  if (descriptor < 0) return;
  struct stat status;
  if (fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode) &&
      status.st_size > 0) {
    size_ = static_cast<size_t>(status.st_size);
    void* const bytes =
        mmap(nullptr, size_, PROT_READ, MAP_PRIVATE, descriptor, 0);
    if (bytes != MAP_FAILED) bytes_ = bytes;
  }
  close(descriptor);
}

MappedFile::~MappedFile() {
  if (bytes_ != nullptr) munmap(bytes_, size_);
}

}  // namespace tools
}  // namespace vantiro
