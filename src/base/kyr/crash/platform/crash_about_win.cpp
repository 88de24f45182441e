#include <kyr/crash/crash_win_p.h>
#include <kyr/sync/thread_sites_p.h>
#include <kyr/sync/watched_thread_p.h>

#include <algorithm>
#include <array>

#include <windows.h>

namespace Kyr {

namespace {

using namespace Crash;

/// Bytes of a text that are shown at most.
using Piece = std::array<char, 200>;

/// The threads whose backtraces have been printed.
std::array<DWORD, 4096> notedThreads;
std::size_t notedCount = 0;

/// Reads memory of this process, as far as there is some.
bool read(std::uintptr_t address, void* target, SIZE_T size) noexcept {
  SIZE_T count = 0;
  return ::ReadProcessMemory(::GetCurrentProcess(), reinterpret_cast<const void*>(address), target,
                             size, &count) &&
         count == size;
}

/// Reads a text, as far as there is memory: its owner may have released it.
void readText(const char* text, Piece& piece) noexcept {
  const auto address = reinterpret_cast<std::uintptr_t>(text);
  std::size_t length = 0;
  while (length < piece.size() - 1 && read(address + length, &piece[length], 1) &&
         piece[length] != '\0') {
    ++length;
  }
  piece[length] = '\0';
}

/// \return the length in UTF-8; 0 when it does not fit
template <std::size_t Size>
std::size_t toUtf8(const wchar_t* text, int length, std::array<char, Size>& bytes) noexcept {
  const int count = ::WideCharToMultiByte(CP_UTF8, 0, text, length, bytes.data(), int{Size} - 1,
                                          nullptr, nullptr);
  bytes[static_cast<std::size_t>(count)] = '\0';
  return static_cast<std::size_t>(count);
}

/// A function of the system's lowest library, which its headers do not declare.
template <class Function>
Function* systemFunction(const char* name) noexcept {
  const HMODULE library = ::GetModuleHandleW(L"ntdll.dll");
  return library
             ? reinterpret_cast<Function*>(reinterpret_cast<void*>(::GetProcAddress(library, name)))
             : nullptr;
}

void writeThread(DWORD thread) noexcept {
  Piece name{};
  Piece function{};
  Piece file{};
  ThreadSite site{};
  Platform::threadName(thread, name.data(), name.size());
  if (findThreadSite(thread, site)) {
    readText(site.function, function);
    readText(site.file, file);
  }
  write(threadLine(thread, name.data(), function.data(), file.data(), site.line));
}

std::int64_t secondsNow() noexcept {
  constexpr std::int64_t ticksOfSecond = 10'000'000;
  constexpr std::int64_t secondsFrom1601 = 11'644'473'600;  // to 1970
  FILETIME time{};
  ::GetSystemTimeAsFileTime(&time);
  const auto ticks =
      static_cast<std::int64_t>((std::uint64_t{time.dwHighDateTime} << 32) | time.dwLowDateTime);
  return ticks / ticksOfSecond - secondsFrom1601;
}

const char* nameOfMachine(WORD architecture) noexcept {
  switch (architecture) {
    case PROCESSOR_ARCHITECTURE_AMD64:
      return "x86_64";
    case PROCESSOR_ARCHITECTURE_INTEL:
      return "x86";
    default:
      return "another machine";
  }
}

/// Asks the system itself: GetVersionEx() tells an old version to programs without a manifest.
void writeSystem() noexcept {
  using Query = LONG NTAPI(OSVERSIONINFOW*);
  OSVERSIONINFOW version{};
  version.dwOSVersionInfoSize = sizeof version;
  SYSTEM_INFO machine{};
  ::GetNativeSystemInfo(&machine);
  auto* const query = systemFunction<Query>("RtlGetVersion");
  Text text;
  text << "system: Windows ";
  if (query && query(&version) >= 0) {
    text.count(version.dwMajorVersion) << ".";
    text.count(version.dwMinorVersion) << ".";
    text.count(version.dwBuildNumber) << " ";
  }
  text << nameOfMachine(machine.wProcessorArchitecture) << ", ";
  write(text.count(machine.dwNumberOfProcessors) << " processors\n");
}

// ---- modules ----------------------------------------------------------------------------------

bool readHead(std::uintptr_t base, IMAGE_NT_HEADERS& head) noexcept {
  IMAGE_DOS_HEADER start{};
  return read(base, &start, sizeof start) && start.e_magic == IMAGE_DOS_SIGNATURE &&
         read(base + static_cast<std::uintptr_t>(start.e_lfanew), &head, sizeof head) &&
         head.Signature == IMAGE_NT_SIGNATURE &&
         head.OptionalHeader.Magic == IMAGE_NT_OPTIONAL_HDR_MAGIC;
}

/// What a linker writes to tell a build from others.
struct CodeView {
  DWORD signature;
  GUID guid;
  DWORD age;
};
constexpr DWORD codeViewSignature = 0x53445352;  // "RSDS"

bool readCodeView(std::uintptr_t base, const IMAGE_NT_HEADERS& head, CodeView& found) noexcept {
  const IMAGE_DATA_DIRECTORY& list = head.OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_DEBUG];
  IMAGE_DEBUG_DIRECTORY entry{};
  for (DWORD at = 0; at + sizeof entry <= list.Size; at += DWORD{sizeof entry}) {
    if (!read(base + list.VirtualAddress + at, &entry, sizeof entry)) {
      return false;
    }
    if (entry.Type == IMAGE_DEBUG_TYPE_CODEVIEW && entry.AddressOfRawData != 0 &&
        read(base + entry.AddressOfRawData, &found, sizeof found) &&
        found.signature == codeViewSignature) {
      return true;
    }
  }
  return false;
}

/// Appends the digits of the GUID as people write it, and the age.
void appendIdentity(Text& text, const CodeView& found) noexcept {
  const GUID& guid = found.guid;
  const std::array<unsigned char, 8> head = {
      static_cast<unsigned char>(guid.Data1 >> 24), static_cast<unsigned char>(guid.Data1 >> 16),
      static_cast<unsigned char>(guid.Data1 >> 8),  static_cast<unsigned char>(guid.Data1),
      static_cast<unsigned char>(guid.Data2 >> 8),  static_cast<unsigned char>(guid.Data2),
      static_cast<unsigned char>(guid.Data3 >> 8),  static_cast<unsigned char>(guid.Data3)};
  appendBytes(text, head.data(), head.size());
  appendBytes(text, &guid.Data4[0], sizeof guid.Data4);
  text << "-";
  text.count(found.age);
}

using LongPath = std::array<char, 4096>;

/// The path of the dump; empty when there is none. The system ends its temporary directory with a
/// separator, behind which another one stands in the path: people see one.
void readDumpPath(LongPath& path) noexcept {
  if (toUtf8(writtenDump(), -1, path) == 0) {
    return;
  }
  char* const second = path.data() + (path[0] != '\0' ? 1 : 0);  // a share begins with two
  char* const last = path.data() + std::strlen(path.data());
  char* const end = std::unique(
      second, last, [](char left, char right) { return left == '\\' && right == '\\'; });
  *end = '\0';
}

void appendFile(Text& text, std::uintptr_t base) noexcept {
  static std::array<wchar_t, 1024> path;
  static std::array<char, 4096> bytes;
  const DWORD length =
      ::GetModuleFileNameW(reinterpret_cast<HMODULE>(base), path.data(), DWORD{path.size()});
  std::replace(path.begin(), path.end(), L'\\', L'/');
  const std::size_t count = length > 0 ? toUtf8(path.data(), static_cast<int>(length), bytes) : 0;
  count > 0 ? appendPath(text, bytes.data(), count) : static_cast<void>(text << "?");
}

void writeModule(std::uintptr_t base) noexcept {
  IMAGE_NT_HEADERS head{};
  if (!readHead(base, head)) {
    return;
  }
  Text text;
  text << "module ";
  text.hexadecimal(base) << " ";
  text.hexadecimal(base + head.OptionalHeader.SizeOfImage) << " ";
  CodeView found{};
  if (readCodeView(base, head, found)) {
    appendIdentity(text, found);
  } else {
    text << "no-build-id";
  }
  text << " ";
  appendFile(text, base);
  write(text << "\n");
}

}  // namespace

void Crash::noteThread(unsigned long thread) noexcept {
  if (notedCount < notedThreads.size() && !isCollecting()) {
    notedThreads[notedCount++] = thread;
  }
}

void Crash::printAbout(const Text& fault) noexcept {
  Text text;
  text << "\n\nabout this crash:\nfault: ";
  appendVisible(text, fault.data(), fault.length());
  write(text);
  text = Text();
  text << "\ntime: ";
  appendMoment(text, secondsNow());
  text << "\nprocess: ";
  write(text.count(::GetCurrentProcessId()) << "\n");
  write(preparedLines(), std::strlen(preparedLines()));
  writeSystem();
  text = Text();
  static LongPath dump;
  readDumpPath(dump);
  if (dump[0] != '\0') {
    text << "dump: " << dump.data() << "\n";
  }
  write(text << "\nthreads:\n");
  for (std::size_t i = 0; i < notedCount; ++i) {
    writeThread(notedThreads[i]);
  }
  write(Text() << "\nmodules of the backtraces:\n");
  for (const std::uint64_t begin : metModules()) {
    writeModule(static_cast<std::uintptr_t>(begin));
  }
}

void Crash::showNotice() noexcept {
  static LongPath path;
  static std::array<wchar_t, 4096> wide;
  std::intptr_t place = 0;
  readDumpPath(path);
  Text text = takeNotice(path.data(), place);
  if (text.length() == 0) {
    return;
  }
  text << "\r\n";
  const auto target = reinterpret_cast<HANDLE>(place);
  const int count = ::MultiByteToWideChar(CP_UTF8, 0, text.data(), static_cast<int>(text.length()),
                                          wide.data(), int{wide.size()});
  DWORD written = 0;
  if (!::WriteConsoleW(target, wide.data(), static_cast<DWORD>(count), &written, nullptr)) {
    ::WriteFile(target, text.data(), static_cast<DWORD>(text.length()), &written, nullptr);
  }
}

}  // namespace Kyr
