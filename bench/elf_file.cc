#include "bench/elf_file.h"

#include <cstring>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace vantiro {
namespace bench {
namespace {

bool IsLoaded(const Elf64_Shdr& section) {
  return (section.sh_flags & SHF_ALLOC) != 0;
}

bool IsWritable(const Elf64_Shdr& section) {
  return IsLoaded(section) && (section.sh_flags & SHF_WRITE) != 0;
}

}  // namespace

template <typename T>
std::vector<T> ElfFile::Read(size_t offset, size_t count) const {
  if (offset > contents_.size() ||
      count > (contents_.size() - offset) / sizeof(T)) {
    throw std::runtime_error("an ELF file is cut off");
  }
  std::vector<T> values(count);
  std::memcpy(values.data(), contents_.data() + offset, count * sizeof(T));
  return values;
}

template <typename Predicate>
size_t ElfFile::SizeOfSections(const Predicate& predicate) const {
  size_t size = 0;
  for (const Elf64_Shdr& section : sections_) {
    if (predicate(section)) size += section.sh_size;
  }
  return size;
}

ElfFile::ElfFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  contents_.assign(std::istreambuf_iterator<char>(file), {});
  const auto header = Read<Elf64_Ehdr>(0, 1)[0];
  sections_ = Read<Elf64_Shdr>(header.e_shoff, header.e_shnum);
}

std::string ElfFile::BuildId() const {
  for (const Elf64_Shdr& section : sections_) {
    if (section.sh_type != SHT_NOTE) continue;
    const auto note = Read<Elf64_Nhdr>(section.sh_offset, 1)[0];
    if (note.n_type != NT_GNU_BUILD_ID) continue;
    std::string digits;
    for (const unsigned char byte : Read<unsigned char>(
             section.sh_offset + sizeof note + note.n_namesz, note.n_descsz)) {
      digits += "0123456789abcdef"[byte >> 4];
      digits += "0123456789abcdef"[byte & 15];
    }
    return digits;
  }
  return "";
}

size_t ElfFile::TextSize() const {
  return SizeOfSections([](const Elf64_Shdr& section) {
    return IsLoaded(section) && !IsWritable(section);
  });
}

size_t ElfFile::DataSize() const {
  return SizeOfSections([](const Elf64_Shdr& section) {
    return IsWritable(section) && section.sh_type != SHT_NOBITS;
  });
}

size_t ElfFile::BssSize() const {
  return SizeOfSections([](const Elf64_Shdr& section) {
    return IsWritable(section) && section.sh_type == SHT_NOBITS;
  });
}

size_t ElfFile::RelocationCount() const {
  return SizeOfSections([](const Elf64_Shdr& section) {
           return section.sh_type == SHT_RELA;
         }) /
         sizeof(Elf64_Rela);
}

size_t ElfFile::NamedRelocationCount() const {
  size_t count = 0;
  for (const Elf64_Shdr& section : sections_) {
    if (section.sh_type != SHT_RELA) continue;
    for (const auto& relocation : Read<Elf64_Rela>(
             section.sh_offset, section.sh_size / sizeof(Elf64_Rela))) {
      if (ELF64_R_SYM(relocation.r_info) != 0) ++count;
    }
  }
  return count;
}

size_t ElfFile::StrippedSize() const {
  return contents_.size() - SizeOfSections([](const Elf64_Shdr& section) {
           return !IsLoaded(section) && section.sh_type != SHT_NULL;
         });
}

}  // namespace bench
}  // namespace vantiro
