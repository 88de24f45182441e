/// \file
/// kyr-backtrace: prints backtraces of the crashed process that started it.
///
///   kyr-backtrace SOCKET MEMORY MAPS
///
/// The arguments are numbers of open descriptors: the socket of the conversation, the memory of
/// the process and the list of what is mapped in it. Each request on the socket is the registers
/// of a thread that stands still: 17 numbers of 64 bits in the numbering of the debug
/// information, the last of them the instruction pointer. The backtrace goes to standard error;
/// then one byte answers. The conversation ends with the socket.

#include <elfutils/libdw.h>
#include <elfutils/libdwfl.h>

#include <cxxabi.h>
#include <dwarf.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/types.h>
#include <unistd.h>

#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>

namespace {

constexpr std::size_t stackPointer = 7;
constexpr std::size_t instructionPointer = 16;
constexpr unsigned registerCount = 17;
using Registers = std::array<Dwarf_Word, registerCount>;

/// More are the same few of an endless recursion.
constexpr unsigned mostFrames = 100;

struct Request {
  Dwarf_Word count;
  Registers numbers;
};

/// The process and the thread that is looked at.
struct Process {
  Dwfl* modules = nullptr;
  int memory = -1;
  Registers registers{};
  unsigned frames = 0;    ///< printed of this thread
  bool returned = false;  ///< the registers were put back to the caller
};

struct Freed {
  void operator()(void* memory) const { std::free(memory); }
};
template <typename T>
using Allocated = std::unique_ptr<T, Freed>;

// ---- names ------------------------------------------------------------------------------------

std::string plainName(const char* name) {
  if (std::strncmp(name, "_Z", 2) != 0) {
    return name;  // a plain "f" would be taken for the type float
  }
  int status = 0;
  const Allocated<char> plain(abi::__cxa_demangle(name, nullptr, nullptr, &status));
  return plain ? plain.get() : name;
}

/// Symbols of libraries may end with the version of the interface, as "@@GLIBC_2.34".
std::string withoutVersion(const char* name) {
  const std::string whole = name;
  return whole.substr(0, whole.find('@'));
}

std::string fileOf(const char* path) {
  const std::string whole = path;
  return whole.substr(whole.rfind('/') + 1);
}

std::string hexadecimal(Dwarf_Addr number) {
  std::array<char, 20> text{};
  std::snprintf(text.data(), text.size(), "0x%llx", static_cast<unsigned long long>(number));
  return text.data();
}

const char* nameOf(Dwarf_Die& function) {
  Dwarf_Attribute attribute;
  for (const unsigned name : {DW_AT_linkage_name, DW_AT_MIPS_linkage_name}) {
    if (const char* text = dwarf_formstring(dwarf_attr_integrate(&function, name, &attribute))) {
      return text;
    }
  }
  return dwarf_diename(&function);
}

/// A place in a source file, as it stands behind a function.
struct Place {
  const char* file = nullptr;
  int line = 0;

  std::string text() const {
    return file ? " (" + std::string(file) + ":" + std::to_string(line) + ")" : "";
  }
};

/// The compilation unit that an address belongs to. Not every compiler writes the index of
/// addresses; without it the units are asked one after the other.
Dwarf_Die* unitOf(Dwfl_Module* module, Dwarf_Addr address, Dwarf_Addr& bias) {
  if (Dwarf_Die* unit = dwfl_module_addrdie(module, address, &bias)) {
    return unit;
  }
  for (Dwarf_Die* unit = nullptr; (unit = dwfl_module_nextcu(module, unit, &bias));) {
    if (dwarf_haspc(unit, address - bias) > 0) {
      return unit;
    }
  }
  return nullptr;
}

/// \param address as the unit counts
Place placeOf(Dwarf_Die& unit, Dwarf_Addr address) {
  Place place;
  if (Dwarf_Line* line = dwarf_getsrc_die(&unit, address)) {
    place.file = dwarf_linesrc(line, nullptr, nullptr);
    dwarf_lineno(line, &place.line);
  }
  return place;
}

/// Where an inlined function was called.
Place callOf(Dwarf_Die& inlined, Dwarf_Die& unit) {
  Dwarf_Attribute attribute;
  Dwarf_Word file = 0;
  Dwarf_Word line = 0;
  Dwarf_Files* files = nullptr;
  if (dwarf_formudata(dwarf_attr(&inlined, DW_AT_call_file, &attribute), &file) != 0 ||
      dwarf_formudata(dwarf_attr(&inlined, DW_AT_call_line, &attribute), &line) != 0 ||
      dwarf_getsrcfiles(&unit, &files, nullptr) != 0) {
    return {};
  }
  return {dwarf_filesrc(files, file, nullptr, nullptr), static_cast<int>(line)};
}

// ---- frames -----------------------------------------------------------------------------------

void printNumber(Process& process, Dwarf_Addr address) {
  std::fprintf(stderr, "#%-2u %s ", process.frames++, hexadecimal(address).c_str());
}

/// The functions that the compiler merged into this one, the innermost first.
/// \return where the function itself was left
Place printInlined(Process& process, Dwfl_Module* module, Dwarf_Addr shown, Dwarf_Addr looked) {
  Dwarf_Addr bias = 0;
  Dwarf_Die* unit = unitOf(module, looked, bias);
  if (!unit) {
    return {};
  }
  Place place = placeOf(*unit, looked - bias);
  Dwarf_Die* found = nullptr;
  if (dwarf_getscopes(unit, looked - bias, &found) <= 0) {
    return place;
  }
  Allocated<Dwarf_Die> scopes(found);
  Dwarf_Die innermost = scopes.get()[0];
  const int count = dwarf_getscopes_die(&innermost, &found);
  scopes.reset(count > 0 ? found : nullptr);
  for (int i = 0; i < count && dwarf_tag(&scopes.get()[i]) != DW_TAG_subprogram; ++i) {
    Dwarf_Die& scope = scopes.get()[i];
    const char* name = nameOf(scope);
    if (dwarf_tag(&scope) == DW_TAG_inlined_subroutine && name) {
      printNumber(process, shown);
      std::fprintf(stderr, "%s%s, inlined\n", plainName(name).c_str(), place.text().c_str());
      place = callOf(scope, *unit);
    }
  }
  return place;
}

/// \param shown the address that the frame goes on at
/// \param looked an address inside the instruction that is meant
void printFrame(Process& process, Dwarf_Addr shown, Dwarf_Addr looked) {
  Dwfl_Module* module = dwfl_addrmodule(process.modules, looked);
  if (!module) {
    printNumber(process, shown);
    std::fputs("?\n", stderr);
    return;
  }
  const Place place = printInlined(process, module, shown, looked);
  Dwarf_Addr start = 0;
  const char* path =
      dwfl_module_info(module, nullptr, &start, nullptr, nullptr, nullptr, nullptr, nullptr);
  GElf_Off offset = 0;
  GElf_Sym symbol;
  const char* name =
      dwfl_module_addrinfo(module, looked, &offset, &symbol, nullptr, nullptr, nullptr);
  printNumber(process, shown);
  std::fprintf(stderr, "%s%s%s+%s%s\n", fileOf(path ? path : "?").c_str(), name ? "!" : "",
               name ? plainName(withoutVersion(name).c_str()).c_str() : "",
               hexadecimal(name ? offset + (shown - looked) : shown - start).c_str(),
               place.text().c_str());
}

int onFrame(Dwfl_Frame* frame, void* given) {
  auto& process = *static_cast<Process*>(given);
  if (process.frames >= mostFrames) {
    std::fputs("further frames are left out\n", stderr);
    return DWARF_CB_ABORT;
  }
  Dwarf_Addr address = 0;
  bool isActivation = false;
  if (!dwfl_frame_pc(frame, &address, &isActivation)) {
    return DWARF_CB_ABORT;
  }
  // A return address may already belong to the next line, or to the next function.
  const bool isReturn = !isActivation || (process.returned && process.frames == 1);
  printFrame(process, address, isReturn ? address - 1 : address);
  return DWARF_CB_OK;
}

// ---- the process ------------------------------------------------------------------------------

bool readMemory(Dwfl*, Dwarf_Addr address, Dwarf_Word* word, void* given) {
  const auto& process = *static_cast<Process*>(given);
  const auto offset = static_cast<off_t>(address);
  return ::pread(process.memory, word, sizeof *word, offset) == sizeof *word;
}

bool setRegisters(Dwfl_Thread* thread, void* given) {
  const Registers& registers = static_cast<Process*>(given)->registers;
  return dwfl_thread_state_registers(thread, 0, registerCount, registers.data());
}

/// One thread at a time, under a number that means nothing.
pid_t nextThread(Dwfl*, void* given, void** argument) {
  if (*argument) {
    return 0;
  }
  *argument = given;
  return 1;
}

const Dwfl_Thread_Callbacks threadCallbacks = {&nextThread,   nullptr, &readMemory,
                                               &setRegisters, nullptr, nullptr};

char* debugFolders = nullptr;  // the usual ones
const Dwfl_Callbacks moduleCallbacks = {&dwfl_linux_proc_find_elf, &dwfl_standard_find_debuginfo,
                                        nullptr, &debugFolders};

/// A call to where no code is has left nothing but the return address on the stack.
void returnFromNowhere(Process& process) {
  Registers& registers = process.registers;
  Dwarf_Word address = 0;
  if (dwfl_addrmodule(process.modules, registers[instructionPointer]) ||
      !readMemory(nullptr, registers[stackPointer], &address, &process) ||
      !dwfl_addrmodule(process.modules, address)) {
    return;
  }
  printFrame(process, registers[instructionPointer], registers[instructionPointer]);
  registers[instructionPointer] = address;
  registers[stackPointer] += sizeof address;
  process.returned = true;
}

void printCalls(Process& process, const Request& request) {
  for (std::size_t i = 0; i < request.count && i < request.numbers.size(); ++i) {
    printFrame(process, request.numbers[i], request.numbers[i] - 1);
  }
}

void printBacktrace(Process& process, const Request& request) {
  process.frames = 0;
  process.returned = false;
  if (request.count > 0) {
    printCalls(process, request);
    return;
  }
  process.registers = request.numbers;
  returnFromNowhere(process);
  dwfl_getthread_frames(process.modules, 1, &onFrame, &process);
  if (process.frames == 0) {
    printFrame(process, process.registers[instructionPointer],
               process.registers[instructionPointer]);
  }
}

Dwfl* openModules(int maps) {
  Dwfl* modules = dwfl_begin(&moduleCallbacks);
  std::FILE* list = ::fdopen(maps, "r");
  if (!modules || !list || dwfl_linux_proc_maps_report(modules, list) != 0 ||
      dwfl_report_end(modules, nullptr, nullptr) != 0) {
    return nullptr;
  }
  return modules;
}

bool receive(int socket, Request& request) {
  auto* next = reinterpret_cast<char*>(&request);
  std::size_t missing = sizeof request;
  while (missing > 0) {
    const ssize_t count = ::read(socket, next, missing);
    if (count <= 0) {
      return false;
    }
    next += count;
    missing -= static_cast<std::size_t>(count);
  }
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 4) {
    std::fputs("kyr-backtrace: started by a crashing process, for which it works\n", stderr);
    return 2;
  }
  ::prctl(PR_SET_PDEATHSIG, SIGKILL);
  static std::array<char, 1U << 16> buffer;
  std::setvbuf(stderr, buffer.data(), _IOFBF, buffer.size());
  const int socket = static_cast<int>(std::strtol(argv[1], nullptr, 10));
  Process process;
  process.memory = static_cast<int>(std::strtol(argv[2], nullptr, 10));
  process.modules = openModules(static_cast<int>(std::strtol(argv[3], nullptr, 10)));
  if (!process.modules ||
      !dwfl_attach_state(process.modules, nullptr, 1, &threadCallbacks, &process)) {
    return 1;
  }
  for (Request request{}; receive(socket, request);) {
    printBacktrace(process, request);
    std::fflush(stderr);
    if (::write(socket, "", 1) != 1) {
      break;
    }
  }
  return 0;
}
