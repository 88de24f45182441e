#include <kyr/crash/crash_posix_p.h>

#include <algorithm>

#include <elf.h>

namespace Kyr {

namespace {

using namespace Crash;

/// The build id in the notes of a program or library.
/// \return its length; 0 when there is none
std::size_t findBuildId(const Memory& memory, std::uint64_t begin, std::uint64_t size,
                        unsigned char* id) noexcept {
  constexpr std::uint64_t mostNotes = 4096;
  Elf64_Nhdr note{};
  for (std::uint64_t at = 0; at + sizeof note <= std::min(size, mostNotes);) {
    std::array<char, 4> name{};
    const std::uint64_t nameAt = begin + at + sizeof note;
    if (!memory.read(begin + at, &note, sizeof note)) {
      return 0;
    }
    const std::uint64_t contentAt = nameAt + ((note.n_namesz + 3ULL) & ~3ULL);
    if (note.n_type == NT_GNU_BUILD_ID && note.n_namesz == name.size() &&
        note.n_descsz <= BuildId().size() && memory.read(nameAt, name.data(), name.size()) &&
        std::memcmp(name.data(), ELF_NOTE_GNU, name.size()) == 0) {
      return memory.read(contentAt, id, note.n_descsz) ? note.n_descsz : 0;
    }
    at = contentAt - begin + ((note.n_descsz + 3ULL) & ~3ULL);
  }
  return 0;
}

bool isElf(const Memory& memory, std::uint64_t base, Elf64_Ehdr& header) noexcept {
  return memory.read(base, &header, sizeof header) &&
         std::memcmp(header.e_ident, ELFMAG, SELFMAG) == 0 &&
         header.e_ident[EI_CLASS] == ELFCLASS64 && header.e_phentsize == sizeof(Elf64_Phdr);
}

/// Takes the mappings that follow the first of a file into its module.
std::uint64_t endOfModule(const Memory& memory, std::size_t position,
                          const Mapping& first) noexcept {
  std::uint64_t end = first.end;
  Mapping mapping{};
  while (memory.next(position, mapping)) {
    const bool same = mapping.pathLength == first.pathLength &&
                      std::memcmp(mapping.path, first.path, first.pathLength) == 0;
    if (same && mapping.offset > 0) {
      end = mapping.end;
    } else if (mapping.pathLength > 0) {
      break;
    }
  }
  return end;
}

}  // namespace

bool Crash::nextModule(const Memory& memory, std::size_t& position, LoadedModule& module) noexcept {
  Mapping mapping{};
  while (memory.next(position, mapping)) {
    Elf64_Ehdr header{};
    if (mapping.offset == 0 && mapping.pathLength > 0 && isElf(memory, mapping.begin, header)) {
      module = {mapping.begin, endOfModule(memory, position, mapping), mapping.path,
                mapping.pathLength};
      return true;
    }
  }
  return false;
}

bool Crash::findModule(const Memory& memory, std::uint64_t address, LoadedModule& module) noexcept {
  for (std::size_t position = 0; nextModule(memory, position, module);) {
    if (address >= module.begin && address < module.end) {
      return true;
    }
  }
  return false;
}

std::size_t Crash::readBuildId(const Memory& memory, std::uint64_t base, BuildId& id) noexcept {
  Elf64_Ehdr header{};
  if (!isElf(memory, base, header)) {
    return 0;
  }
  for (unsigned i = 0; i < header.e_phnum; ++i) {
    Elf64_Phdr part{};
    if (!memory.read(base + header.e_phoff + i * sizeof part, &part, sizeof part)) {
      return 0;
    }
    // In a program with fixed addresses they count from 0, and its first part begins at base.
    const std::uint64_t origin = header.e_type == ET_EXEC ? 0 : base;
    if (part.p_type != PT_NOTE) {
      continue;
    }
    if (const std::size_t length =
            findBuildId(memory, origin + part.p_vaddr, part.p_memsz, id.data())) {
      return length;
    }
  }
  return 0;
}

}  // namespace Kyr
