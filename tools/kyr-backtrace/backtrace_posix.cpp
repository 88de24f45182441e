/// \file
/// kyr-backtrace: prints backtraces of the crashed process that started it.
///
///   kyr-backtrace SOCKET MEMORY MAPS PROGRAM
///
/// The arguments are numbers of open descriptors: the socket of the conversation, the memory of
/// the process, the list of what is mapped in it and its program's file, which may have lost its
/// name. Each request on the socket is a Crash::BacktraceRequest. The backtrace goes to standard
/// error; then a Crash::BacktraceAnswer follows. The conversation ends with the socket.

#include "machine_p.h"

#include <kyr/crash/backtrace_request_p.h>

#include <elfutils/libdw.h>
#include <elfutils/libdwfl.h>

#include <cxxabi.h>
#include <dwarf.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/types.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

namespace {

using Kyr::Crash::Registers;
using Request = Kyr::Crash::BacktraceRequest;
using Answer = Kyr::Crash::BacktraceAnswer;
static_assert(sizeof(Dwarf_Word) == sizeof(Registers::value_type));

using KyrBacktrace::instructionPointer;
using KyrBacktrace::stackPointer;

/// How many frames of an endless recursion are printed: of the innermost, which show who calls
/// whom, and of the outermost, which show who began.
constexpr std::size_t mostInnermost = 50;
constexpr std::size_t mostOutermost = 50;
/// The walk behind the innermost frames ends after this time; the outermost are not known then.
constexpr std::chrono::seconds patience{8};

/// A range of addresses.
struct Range {
  Dwarf_Addr begin = 0;
  Dwarf_Addr end = 0;
};

/// The process and the thread that is looked at.
struct Process {
  Dwfl* modules = nullptr;
  int memory = -1;
  std::vector<Range> code;  ///< what may be executed
  Registers registers{};
  std::size_t frames = 0;  ///< lines printed of this thread, and frames of it that are left out
  std::vector<const Dwfl_Module*> met;  ///< modules that frames of any thread lie in
  Answer answer{};                      ///< to the present request
};

/// A function of a stack that was called or interrupted.
struct Frame {
  Dwarf_Addr shown = 0;   ///< where the function goes on
  Dwarf_Addr looked = 0;  ///< an address inside the call or the instruction that was interrupted
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

/// A symbol without the version of the interface at its end, as "@@GLIBC_2.34".
std::string withoutVersion(const char* name) {
  const std::string whole = name;
  return whole.substr(0, whole.find('@'));
}

/// What the system puts behind the name of a file that was removed or replaced.
const std::string removedMark = " (deleted)";

std::string fileOf(const char* path) {
  const std::string whole = path;
  const std::string name = whole.substr(whole.rfind('/') + 1);
  const std::size_t mark = name.rfind(removedMark);
  return mark != std::string::npos && mark + removedMark.size() == name.size()
             ? name.substr(0, mark)
             : name;
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

/// The place in the source that belongs to an address.
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
  std::fprintf(stderr, "#%-2zu %s ", process.frames++, hexadecimal(address).c_str());
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

/// Notes that a frame lies in a module. One that an answer has no room for waits to be met again.
void meet(Process& process, const Dwfl_Module* module, Dwarf_Addr address) {
  std::vector<const Dwfl_Module*>& met = process.met;
  Answer& answer = process.answer;
  if (answer.count < answer.addresses.size() &&
      std::find(met.begin(), met.end(), module) == met.end()) {
    met.push_back(module);
    answer.addresses[answer.count++] = address;
  }
}

void printFrame(Process& process, const Frame& frame) {
  const auto [shown, looked] = frame;
  Dwfl_Module* module = dwfl_addrmodule(process.modules, looked);
  if (!module) {
    printNumber(process, shown);
    std::fputs("?\n", stderr);
    return;
  }
  meet(process, module, looked);
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

/// Whether an address lies where code does.
bool isCode(const Process& process, Dwarf_Addr address) {
  return std::any_of(process.code.begin(), process.code.end(), [address](const Range& range) {
    return address >= range.begin && address < range.end;
  });
}

/// The way through one stack, from the innermost frame outwards: the first are printed on the
/// way, the last are kept.
class Walk {
 public:
  /// \param returned the registers were put back to the caller: its address is behind a call
  Walk(Process& process, bool returned) : _process(process), _returned(returned) {}

  static int onFrame(Dwfl_Frame* frame, void* given) {
    return static_cast<Walk*>(given)->add(*frame);
  }

  void printOutermost() {
    const std::size_t kept = std::min(_count - std::min(_count, mostInnermost), mostOutermost);
    const std::size_t left = _count - std::min(_count, mostInnermost) - kept;
    if (_isUnfinished) {
      std::fputs("further frames are left out\n", stderr);
      return;
    }
    if (left > 0) {
      std::fprintf(stderr, "%zu frames are left out\n", left);
      _process.frames += left;
    }
    for (std::size_t i = _count - kept; i < _count; ++i) {
      printFrame(_process, _last[i % mostOutermost]);
    }
  }

 private:
  int add(Dwfl_Frame& frame) {
    Dwarf_Addr address = 0;
    bool isActivation = false;
    if (!dwfl_frame_pc(&frame, &address, &isActivation) || !leadsOutwards(frame, isActivation)) {
      return DWARF_CB_ABORT;
    }
    const auto now = std::chrono::steady_clock::now();
    _end = _count <= mostInnermost ? now + patience : _end;
    _isUnfinished = now > _end;
    if (_isUnfinished) {
      return DWARF_CB_ABORT;
    }
    // A return address may already belong to the next line, or to the next function.
    const bool isReturn = !isActivation || (_returned && _count == 0);
    const Frame found{address, isReturn ? address - 1 : address};
    if (_count < mostInnermost) {
      printFrame(_process, found);
    } else {
      _last[_count % mostOutermost] = found;
    }
    ++_count;
    return DWARF_CB_OK;
  }

  /// Every call needs some stack, so a broken stack that leads in a circle ends here. Only the
  /// step from a handler of signals to what it interrupted may lead to another stack.
  bool leadsOutwards(Dwfl_Frame& frame, bool isActivation) {
    Dwarf_Word top = 0;
    if (dwfl_frame_reg(&frame, stackPointer, &top) != 0) {
      return true;
    }
    const bool does = isActivation || top > _top;
    _top = top;
    return does;
  }

  Process& _process;
  bool _returned;
  bool _isUnfinished = false;
  std::size_t _count = 0;
  Dwarf_Word _top = 0;
  std::chrono::steady_clock::time_point _end;
  std::array<Frame, mostOutermost> _last{};
};

// ---- the process ------------------------------------------------------------------------------

bool readMemory(Dwfl*, Dwarf_Addr address, Dwarf_Word* word, void* given) {
  const auto& process = *static_cast<Process*>(given);
  const auto offset = static_cast<off_t>(address);
  return ::pread(process.memory, word, sizeof *word, offset) == sizeof *word;
}

bool setRegisters(Dwfl_Thread* thread, void* given) {
  return KyrBacktrace::setRegisters(thread, static_cast<Process*>(given)->registers);
}

/// Tells the unwinder of threads: always of one, under a number that means nothing.
pid_t nextThread(Dwfl*, void* given, void** argument) {
  if (*argument) {
    return 0;
  }
  *argument = given;
  return 1;
}

const Dwfl_Thread_Callbacks threadCallbacks = {&nextThread,   nullptr, &readMemory,
                                               &setRegisters, nullptr, nullptr};

/// The program's own file, which is open: what its path names now may be another.
struct Program {
  int file = -1;
  std::string path;  ///< as the list of what is mapped has it
};
Program program;

Program programOf(int file) {
  const std::string link = "/proc/self/fd/" + std::to_string(file);
  std::array<char, 4096> path{};
  const ssize_t length = ::readlink(link.c_str(), path.data(), path.size());
  return {file, {path.data(), static_cast<std::size_t>(std::max<ssize_t>(length, 0))}};
}

int findFile(Dwfl_Module* module, void** data, const char* name, Dwarf_Addr base, char** path,
             Elf** elf) {
  const int file = name == program.path ? ::dup(program.file) : -1;
  if (file < 0) {
    return dwfl_linux_proc_find_elf(module, data, name, base, path, elf);
  }
  *path = ::strdup(name);
  return file;
}

char* debugFolders = nullptr;  // null means the usual folders
const Dwfl_Callbacks moduleCallbacks = {&findFile, &dwfl_standard_find_debuginfo, nullptr,
                                        &debugFolders};

/// Puts the registers back to the caller, where the thread has called an address without code: such
/// a call leaves nothing but the return address on the stack.
/// \return whether the registers are the caller's now
bool returnFromNowhere(Process& process) {
  const Dwarf_Addr called = process.registers[instructionPointer];
  if (isCode(process, called) && dwfl_addrmodule(process.modules, called)) {
    return false;
  }
  const auto read = [&](Dwarf_Addr address, Dwarf_Word* word) {
    return readMemory(nullptr, address, word, &process);
  };
  Registers caller = process.registers;
  if (!KyrBacktrace::leaveCall(caller, read) || !isCode(process, caller[instructionPointer]) ||
      !dwfl_addrmodule(process.modules, caller[instructionPointer])) {
    return false;
  }
  printFrame(process, {called, called});
  process.registers = caller;
  return true;
}

void printCalls(Process& process, const Request& request) {
  for (std::size_t i = 0; i < request.calls && i < request.numbers.size(); ++i) {
    printFrame(process, {request.numbers[i], request.numbers[i] - 1});
  }
}

void printBacktrace(Process& process, const Request& request) {
  process.frames = 0;
  if (request.calls > 0) {
    printCalls(process, request);
    return;
  }
  process.registers = request.numbers;
  Walk walk(process, returnFromNowhere(process));
  dwfl_getthread_frames(process.modules, 1, &Walk::onFrame, &walk);
  walk.printOutermost();
  if (process.frames == 0) {
    const Dwarf_Addr address = process.registers[instructionPointer];
    printFrame(process, {address, address});
  }
}

/// Adds the range of a line of the form "begin-end rwxp offset device inode path", if it is code.
void addRange(std::vector<Range>& code, const char* line) {
  char* next = nullptr;
  Range range;
  range.begin = std::strtoull(line, &next, 16);
  range.end = std::strtoull(next + 1, &next, 16);
  if (next[1] != '\0' && next[2] != '\0' && next[3] == 'x') {
    code.push_back(range);
  }
}

std::vector<Range> readCode(std::FILE* list) {
  std::vector<Range> code;
  char* text = nullptr;
  std::size_t size = 0;
  while (::getline(&text, &size, list) > 0) {
    addRange(code, text);
  }
  std::free(text);
  std::rewind(list);
  return code;
}

bool open(Process& process, int maps) {
  std::FILE* list = ::fdopen(maps, "r");
  process.modules = dwfl_begin(&moduleCallbacks);
  if (!list || !process.modules) {
    return false;
  }
  process.code = readCode(list);
  return dwfl_linux_proc_maps_report(process.modules, list) == 0 &&
         dwfl_report_end(process.modules, nullptr, nullptr) == 0 &&
         dwfl_attach_state(process.modules, nullptr, 1, &threadCallbacks, &process);
}

bool receive(int socket, char* next, std::size_t missing) {
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

/// What another version sends may be shorter: its first eight bytes are judged before there is
/// any waiting for the others.
bool receive(int socket, Request& request) {
  constexpr std::size_t head = offsetof(Request, calls);
  auto* const bytes = reinterpret_cast<char*>(&request);
  if (!receive(socket, bytes, head)) {
    return false;
  }
  if (request.version != Request::currentVersion || request.size != sizeof request) {
    std::fputs("kyr-backtrace: the library is of another version\n", stderr);
    return false;
  }
  return receive(socket, bytes + head, sizeof request - head);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 5) {
    std::fputs("kyr-backtrace: started by a crashing process, for which it works\n", stderr);
    return 2;
  }
  ::prctl(PR_SET_PDEATHSIG, SIGKILL);
  static std::array<char, 1U << 16> buffer;
  std::setvbuf(stderr, buffer.data(), _IOFBF, buffer.size());
  const auto descriptor = [argv](int word) {
    return static_cast<int>(std::strtol(argv[word], nullptr, 10));
  };
  const int socket = descriptor(1);
  Process process;
  process.memory = descriptor(2);
  program = programOf(descriptor(4));
  if (!open(process, descriptor(3))) {
    return 1;
  }
  for (Request request{}; receive(socket, request);) {
    process.answer = {};
    printBacktrace(process, request);
    std::fflush(stderr);
    if (::write(socket, &process.answer, sizeof(Answer)) != sizeof(Answer)) {
      break;
    }
  }
  return 0;
}
