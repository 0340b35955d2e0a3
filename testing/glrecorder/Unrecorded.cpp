// Which GL, GLU and GLE calls of the program bypass the double: the names its dynamic symbol
// table imports rather than defines. The double's own entry points are defined in the program
// (it links whole), so whatever is still imported reaches the real libraries.
#include <lumagrid/testing/GLRecorder.h>

#include <elf.h>
#include <link.h>

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <cstring>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace glrecorder {

namespace {

// glXxx, gluXxx, gleXxx: a prefix and then a capital, so that glob() is not one.
bool IsEntryPointName(const char* name) {
  for (const char* prefix : {"glu", "gle", "gl"}) {
    const std::size_t n = std::strlen(prefix);
    if (std::strncmp(name, prefix, n) == 0 &&
        std::isupper(static_cast<unsigned char>(name[n])) != 0) {
      return true;
    }
  }
  return false;
}

template <class T>
bool ReadAt(const std::vector<char>& file, std::size_t offset, T* out) {
  if (offset > file.size() || file.size() - offset < sizeof(T)) {
    return false;
  }
  std::memcpy(out, file.data() + offset, sizeof(T));
  return true;
}

}  // namespace

std::vector<std::string> unrecordedEntryPoints() {
  std::ifstream in("/proc/self/exe", std::ios::binary);
  const std::vector<char> file((std::istreambuf_iterator<char>(in)),
                               std::istreambuf_iterator<char>());
  std::vector<std::string> names;
  ElfW(Ehdr) header;
  if (!ReadAt(file, 0, &header) || std::memcmp(header.e_ident, ELFMAG, SELFMAG) != 0) {
    return names;
  }
  for (std::size_t i = 0; i < header.e_shnum; ++i) {
    ElfW(Shdr) symbols;
    if (!ReadAt(file, header.e_shoff + i * header.e_shentsize, &symbols) ||
        symbols.sh_type != SHT_DYNSYM || symbols.sh_entsize == 0) {
      continue;
    }
    ElfW(Shdr) strings;
    if (!ReadAt(file, header.e_shoff + symbols.sh_link * header.e_shentsize, &strings)) {
      continue;
    }
    for (std::size_t k = 0; k < symbols.sh_size / symbols.sh_entsize; ++k) {
      ElfW(Sym) symbol;
      if (!ReadAt(file, symbols.sh_offset + k * symbols.sh_entsize, &symbol) ||
          symbol.st_shndx != SHN_UNDEF || symbol.st_name >= strings.sh_size) {
        continue;
      }
      const std::size_t at = strings.sh_offset + symbol.st_name;
      if (at >= file.size()) {
        continue;
      }
      // Bounded by the string table's end, which a well-formed file closes with a zero.
      const char* name = file.data() + at;
      const std::size_t room =
          std::min<std::size_t>(file.size() - at, strings.sh_size - symbol.st_name);
      if (std::memchr(name, '\0', room) != nullptr && IsEntryPointName(name)) {
        names.emplace_back(name);
      }
    }
  }
  std::sort(names.begin(), names.end());
  names.erase(std::unique(names.begin(), names.end()), names.end());
  return names;
}

}  // namespace glrecorder
