#include <kyr/crash/crash_win_p.h>

#include <algorithm>
#include <array>

#include <windows.h>

#include <dbghelp.h>
#include <tlhelp32.h>

namespace Kyr {

namespace {

using Crash::Position;
using Crash::Symbols;
using Crash::Text;

/// How many frames of an endless recursion are printed: of the innermost, which show who calls
/// whom, and of the outermost, which show who began.
constexpr unsigned mostInnermost = 50;
constexpr unsigned mostOutermost = 50;
/// So many functions at most may call each other in a circle whose frames are skipped, not walked.
constexpr unsigned longestCircle = 16;
/// The walk behind the innermost frames ends after this time; the outermost are not known then.
constexpr DWORD patience = 10'000;  // milliseconds

/// A copy of a thread's stack. The thread stands still only while it is made: reading symbols needs
/// locks that the thread may hold.
struct StackCopy {
  std::uintptr_t begin = 0;
  SIZE_T size = 0;
  std::array<unsigned char, std::size_t{256} << 10> bytes{};

  void take(std::uintptr_t top) noexcept {
    MEMORY_BASIC_INFORMATION memory{};
    ::VirtualQuery(reinterpret_cast<void*>(top), &memory, sizeof memory);
    const std::uintptr_t end =
        reinterpret_cast<std::uintptr_t>(memory.BaseAddress) + memory.RegionSize;
    begin = top;
    size = 0;
    ::ReadProcessMemory(::GetCurrentProcess(), reinterpret_cast<void*>(top), bytes.data(),
                        std::min<SIZE_T>(end - top, bytes.size()), &size);
  }

  bool holds(DWORD64 address, DWORD count) const noexcept {
    return address >= begin && address - begin + count <= size;
  }
};
StackCopy stackCopy;

BOOL CALLBACK readMemory(HANDLE process, DWORD64 address, void* target, DWORD size, DWORD* count) {
  *count = 0;
  if (stackCopy.holds(address, size)) {
    std::memcpy(target, stackCopy.bytes.data() + (address - stackCopy.begin), size);
    *count = size;
    return TRUE;
  }
  SIZE_T read = 0;
  const BOOL done = ::ReadProcessMemory(
      process, reinterpret_cast<void*>(static_cast<std::uintptr_t>(address)), target, size, &read);
  *count = static_cast<DWORD>(read);
  return done;
}

/// The library's functions about stacks.
struct Walker {
  decltype(&::StackWalk64) walk = nullptr;
  PFUNCTION_TABLE_ACCESS_ROUTINE64 tableAccess = nullptr;
  PGET_MODULE_BASE_ROUTINE64 moduleBase = nullptr;

  bool find() noexcept {
    walk = reinterpret_cast<decltype(walk)>(Crash::findDebugHelp("StackWalk64"));
    tableAccess =
        reinterpret_cast<decltype(tableAccess)>(Crash::findDebugHelp("SymFunctionTableAccess64"));
    moduleBase = reinterpret_cast<decltype(moduleBase)>(Crash::findDebugHelp("SymGetModuleBase64"));
    return walk && tableAccess && moduleBase;
  }
};

ADDRESS64 flat(std::uintptr_t offset) noexcept {
  return {offset, 0, AddrModeFlat};
}

/// Whether a program or library has code at an address.
bool isCode(std::uintptr_t address) noexcept {
  constexpr DWORD executable =
      PAGE_EXECUTE | PAGE_EXECUTE_READ | PAGE_EXECUTE_READWRITE | PAGE_EXECUTE_WRITECOPY;
  MEMORY_BASIC_INFORMATION memory{};
  return ::VirtualQuery(reinterpret_cast<void*>(address), &memory, sizeof memory) != 0 &&
         memory.Type == MEM_IMAGE && (memory.Protect & executable) != 0;
}

/// Puts the registers back to the caller, where the thread has called an address without code: such
/// a call leaves the return address on top of the stack.
bool returnToCaller(CONTEXT& context) noexcept {
  Position position = Crash::positionIn(context);
  std::uintptr_t caller = 0;
  DWORD count = 0;
  if (isCode(position.instruction) ||
      !readMemory(::GetCurrentProcess(), position.stack, &caller, sizeof caller, &count)) {
    return false;
  }
  position.instruction = caller;
  position.stack += sizeof caller;
  Crash::setPosition(context, position);
  return true;
}

/// A function of a stack that was called or interrupted.
struct Frame {
  std::uintptr_t address;  ///< where the function goes on
  std::uintptr_t stack;    ///< the stack pointer then, behind the return address
};

/// A recursion: so many frames, the same ones again and again, in as many bytes of the stack.
struct Circle {
  unsigned frames;  ///< 0 for none
  std::uintptr_t bytes;
};

bool holdsWayBack(const Frame& frame, std::uintptr_t distance) noexcept {
  std::uintptr_t address = 0;
  DWORD count = 0;
  return readMemory(::GetCurrentProcess(), frame.stack + distance - sizeof address, &address,
                    sizeof address, &count) &&
         count == sizeof address && address == frame.address;
}

/// The frames of one stack, which come from the innermost outwards: the first are printed at once,
/// the last are kept.
class Frames {
 public:
  explicit Frames(const Symbols& symbols) noexcept : _symbols(symbols) {}

  void add(const Frame& frame) noexcept {
    if (_count < mostInnermost) {
      _symbols.printFrame(_count, frame.address);
    }
    _last[_count % mostOutermost] = frame;
    ++_count;
    ++_known;
  }

  /// Leaves out a recursion up to its outermost frames, which may be a hundred thousand calls.
  /// \return by how many bytes the last frame has moved outwards, to be added again; 0 for none
  std::uintptr_t skipCircle() noexcept {
    const Circle circle = _known >= 2 * longestCircle ? findCircle() : Circle{};
    const unsigned whole = circle.frames > 0 ? countRepetitions(circle) : 0;
    const unsigned walked = circle.frames > 0 ? mostOutermost / circle.frames + 1 : 0;
    if (whole <= walked) {
      return 0;
    }
    _count += (whole - walked) * circle.frames - 1;
    _known = 0;
    return (whole - walked) * circle.bytes;
  }

  void printOutermost() const noexcept {
    const unsigned behind = _count - std::min(_count, mostInnermost);
    const unsigned kept = std::min({behind, mostOutermost, _known});
    if (behind > kept) {
      Text text;
      text.decimal(behind - kept) << " frames are left out\n";
      Crash::write(text);
    }
    for (unsigned number = _count - kept; number < _count; ++number) {
      _symbols.printFrame(number, _last[number % mostOutermost].address);
    }
  }

 private:
  /// An earlier one of the frames that are kept.
  /// \param back how many frames before the last
  const Frame& before(unsigned back) const noexcept {
    return _last[(_count - 1 - back) % mostOutermost];
  }

  bool repeats(const Circle& circle) const noexcept {
    for (unsigned i = 0; i < circle.frames; ++i) {
      if (before(i).address != before(i + circle.frames).address ||
          before(i).stack - before(i + circle.frames).stack != circle.bytes) {
        return false;
      }
    }
    return circle.bytes > 0;
  }

  Circle findCircle() const noexcept {
    for (unsigned frames = 1; frames <= longestCircle; ++frames) {
      const Circle circle{frames, before(0).stack - before(frames).stack};
      if (repeats(circle)) {
        return circle;
      }
    }
    return {};
  }

  /// How often the circle comes again behind the last frame.
  unsigned countRepetitions(const Circle& circle) const noexcept {
    unsigned count = 0;
    while (true) {
      for (unsigned i = 0; i < circle.frames; ++i) {
        if (!holdsWayBack(before(i), (count + 1) * circle.bytes)) {
          return count;
        }
      }
      ++count;
    }
  }

  const Symbols& _symbols;
  unsigned _count = 0;
  unsigned _known = 0;  ///< how many of the last frames are kept
  std::array<Frame, mostOutermost> _last{};
};

/// The way through one stack.
class Walk {
 public:
  Walk(const Walker& walker, HANDLE thread, const CONTEXT& context) noexcept
      : _walker(walker), _thread(thread), _context(context) {
    start();
  }

  /// \return false behind the outermost frame
  bool next() noexcept {
    const DWORD64 before = _frame.AddrStack.Offset;
    const CONTEXT begin = _context;
    const bool found =
        _walker.walk(Crash::processorNumber(), ::GetCurrentProcess(), _thread, &_frame, &_context,
                     &readMemory, _walker.tableAccess, _walker.moduleBase, nullptr) &&
        _frame.AddrPC.Offset != 0 && (_isFirst || _frame.AddrStack.Offset > before);
    _position = Crash::positionIn(_frame, begin, _context);
    _isFirst = false;
    return found;
  }

  Frame frame() const noexcept { return {_position.instruction, _position.stack}; }

  /// Goes on at the same place of a function that was called in the same way, further outwards.
  void move(std::uintptr_t bytes) noexcept {
    const bool hasBase = _position.base - _position.stack < bytes;
    Crash::setPosition(_context, {_position.instruction, _position.stack + bytes,
                                  _position.base + (hasBase ? bytes : 0)});
    start();
  }

 private:
  void start() noexcept {
    _position = Crash::positionIn(_context);
    _frame = {};
    _frame.AddrPC = flat(_position.instruction);
    _frame.AddrFrame = flat(_position.base);
    _frame.AddrStack = flat(_position.stack);
    _isFirst = true;
  }

  const Walker& _walker;
  HANDLE _thread;
  CONTEXT _context;
  STACKFRAME64 _frame{};
  Position _position{};
  bool _isFirst = true;
};

void printStack(const Symbols& symbols, const Walker& walker, HANDLE thread,
                CONTEXT context) noexcept {
  Frames frames(symbols);
  const Position position = Crash::positionIn(context);
  if (returnToCaller(context)) {
    frames.add({position.instruction, position.stack});
  }
  Walk walk(walker, thread, context);
  DWORD begin = 0;
  for (unsigned number = 1; walk.next(); ++number) {
    frames.add(walk.frame());
    begin = number <= mostInnermost ? ::GetTickCount() : begin;
    if (::GetTickCount() - begin > patience) {
      Crash::write(Text() << "further frames are left out\n");
      return;
    }
    const std::uintptr_t bytes = number % mostInnermost == 0 ? frames.skipCircle() : 0;
    if (bytes > 0) {
      walk.move(bytes);
    }
  }
  frames.printOutermost();
}

void printBacktrace(const Symbols& symbols, HANDLE thread, const CONTEXT& context) noexcept {
  Walker walker;
  const DWORD error = walker.find() ? symbols.error() : ERROR_PROC_NOT_FOUND;
  if (error == 0) {
    printStack(symbols, walker, thread, context);
    return;
  }
  Crash::printSystemError("error getting process addresses", error);
  symbols.printFrame(0, Crash::positionIn(context).instruction);
}

/// Copies the registers and the stack of a thread, which stands still meanwhile.
bool copyThread(HANDLE thread, CONTEXT& context) noexcept {
  context.ContextFlags = CONTEXT_FULL;
  if (::SuspendThread(thread) == static_cast<DWORD>(-1)) {
    return false;
  }
  const bool known = ::GetThreadContext(thread, &context) != FALSE;
  const DWORD error = ::GetLastError();
  if (known) {
    stackCopy.take(Crash::positionIn(context).stack);
  }
  ::ResumeThread(thread);
  ::SetLastError(error);
  return known;
}

/// Prints a stack below its heading.
void printThread(const Symbols& symbols, DWORD id) noexcept {
  Crash::noteThread(id);
  const HANDLE thread = ::OpenThread(
      THREAD_SUSPEND_RESUME | THREAD_GET_CONTEXT | THREAD_QUERY_INFORMATION, FALSE, id);
  if (!thread) {
    Crash::printSystemError("error while getting the threadhandle", ::GetLastError());
    return;
  }
  CONTEXT context{};
  if (copyThread(thread, context)) {
    printBacktrace(symbols, thread, context);
  } else {
    Crash::printSystemError("error getting the thread context", ::GetLastError());
  }
  ::CloseHandle(thread);
}

void printThread(const Symbols& symbols, const THREADENTRY32& entry) noexcept {
  Text heading;
  heading << "\n\nnext thread: ";
  heading.hexadecimal(entry.th32ThreadID) << ", priority ";
  heading.decimal(entry.tpBasePri) << "\n";
  Crash::write(heading);
  printThread(symbols, entry.th32ThreadID);
}

void printOtherThreads(const Symbols& symbols, DWORD crashing, DWORD helper) noexcept {
  const HANDLE snapshot = ::CreateToolhelp32Snapshot(TH32CS_SNAPTHREAD, 0);
  if (snapshot == INVALID_HANDLE_VALUE) {
    Crash::printSystemError("\nerror while enumerating threads", ::GetLastError());
    return;
  }
  THREADENTRY32 entry{};
  entry.dwSize = sizeof entry;
  bool found = ::Thread32First(snapshot, &entry) != FALSE;
  while (found) {
    const DWORD id = entry.th32ThreadID;
    if (entry.th32OwnerProcessID == ::GetCurrentProcessId() && id != crashing && id != helper &&
        id != ::GetCurrentThreadId()) {
      printThread(symbols, entry);
    }
    entry.dwSize = sizeof entry;
    found = ::Thread32Next(snapshot, &entry) != FALSE;
  }
  if (::GetLastError() != ERROR_NO_MORE_FILES) {
    Crash::printSystemError("\nerror while retrieving thread info", ::GetLastError());
  }
  ::CloseHandle(snapshot);
}

void printThrow(const Symbols& symbols, const Crash::CallChain& thrown) noexcept {
  if (thrown.count > 0) {
    Crash::write(Text() << "the exception was thrown by:\n");
  }
  for (unsigned i = 0; i < thrown.count; ++i) {
    symbols.printFrame(i, static_cast<std::uintptr_t>(thrown.addresses[i]));
  }
}

}  // namespace

void Crash::printBacktraces(const Break& broken, unsigned long helper) noexcept {
  Text heading;
  heading << "\nbacktrace of the crashing thread ";
  heading.hexadecimal(broken.thread) << ":\n";
  write(heading);
  noteThread(broken.thread);
  const Symbols symbols;
  printBacktrace(symbols, ::GetCurrentThread(), *broken.fault->ContextRecord);
  printThrow(symbols, *broken.thrown);
  printOtherThreads(symbols, broken.thread, helper);
}

void Crash::printLivingBacktraces(unsigned long hanging, bool alone) noexcept {
  Text heading;
  heading << "\nbacktrace of the hanging thread ";
  heading.hexadecimal(hanging) << ":\n";
  write(heading);
  const Symbols symbols;
  printThread(symbols, hanging);
  if (!alone) {
    printOtherThreads(symbols, hanging, 0);
  }
}

}  // namespace Kyr
