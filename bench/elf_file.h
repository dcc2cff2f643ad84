// What an ELF file, of 64 bits, says about itself.

#ifndef VANTIRO_BENCH_ELF_FILE_H_
#define VANTIRO_BENCH_ELF_FILE_H_

#include <elf.h>

#include <cstddef>
#include <string>
#include <vector>

namespace vantiro {
namespace bench {

class ElfFile {
 public:
  explicit ElfFile(const std::string& path);

  // In hexadecimal digits; empty if there is none.
  std::string BuildId() const;
  // What is loaded: read-only, and writable with and without contents.
  size_t TextSize() const;
  size_t DataSize() const;
  size_t BssSize() const;
  size_t RelocationCount() const;
  // Of these, those for which the dynamic linker looks a name up.
  size_t NamedRelocationCount() const;
  // Without sections that are not loaded, as `strip` leaves it.
  size_t StrippedSize() const;

 private:
  template <typename Predicate>
  size_t SizeOfSections(const Predicate& predicate) const;
  template <typename T>
  std::vector<T> Read(size_t offset, size_t count) const;

  std::string contents_;
  std::vector<Elf64_Shdr> sections_;
};

}  // namespace bench
}  // namespace vantiro

#endif  // VANTIRO_BENCH_ELF_FILE_H_
