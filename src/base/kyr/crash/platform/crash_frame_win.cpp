#include <kyr/crash/crash_exception_p.h>
#include <kyr/crash/crash_win_p.h>
#include <kyr/env/settings_p.h>

#include <algorithm>
#include <array>
#include <cstddef>

#include <windows.h>

#include <dbghelp.h>

namespace Kyr {

namespace {

using Crash::Text;

/// The library's functions about symbols; null where there is no library.
struct Functions {
  decltype(&::SymInitialize) initialize;
  decltype(&::SymCleanup) cleanup;
  decltype(&::SymGetOptions) getOptions;
  decltype(&::SymSetOptions) setOptions;
  decltype(&::SymGetModuleInfo64) getModule;
  decltype(&::SymGetSymFromAddr64) getSymbol;
  decltype(&::SymGetLineFromAddr64) getLine;
  decltype(&::UnDecorateSymbolName) undecorate;
};
Functions call{};

Crash::MetModules met;

template <class Function>
bool find(Function*& function, const char* name) noexcept {
  function = reinterpret_cast<Function*>(Crash::findDebugHelp(name));
  return function != nullptr;
}

bool findAll() noexcept {
  bool found = find(call.initialize, "SymInitialize");
  found = find(call.cleanup, "SymCleanup") && found;
  found = find(call.getOptions, "SymGetOptions") && found;
  found = find(call.setOptions, "SymSetOptions") && found;
  found = find(call.getModule, "SymGetModuleInfo64") && found;
  found = find(call.getSymbol, "SymGetSymFromAddr64") && found;
  found = find(call.getLine, "SymGetLineFromAddr64") && found;
  return find(call.undecorate, "UnDecorateSymbolName") && found;
}

/// Where symbols lie beside those in the programs themselves. Without a list the library would
/// take the one of the environment, which may name servers.
const char* symbolPath() noexcept {
  static std::array<char, 1024> path;
  const QString& root = Settings::settled().software;
  const int length =
      ::WideCharToMultiByte(CP_ACP, 0, reinterpret_cast<const wchar_t*>(root.constData()),
                            root.size(), path.data(), int{path.size()} - 10, nullptr, nullptr);
  std::memcpy(path.data() + length, "/bin", sizeof "/bin");
  return length > 0 ? path.data() : ".";
}

/// How much of that structure all versions of the library know.
constexpr DWORD moduleSize = offsetof(IMAGEHLP_MODULE64, LoadedPdbName);

const char* baseName(const char* path) noexcept {
  const char* base = path;
  for (const char* at = path; *at != '\0'; ++at) {
    base = *at == '/' || *at == '\\' ? at + 1 : base;
  }
  return base;
}

/// What the system has loaded at an address.
struct Module {
  std::uintptr_t base = 0;  // 0 for none
  std::array<char, MAX_PATH> path{};
};

Module moduleAt(std::uintptr_t address) noexcept {
  Module module;
  MEMORY_BASIC_INFORMATION memory{};
  if (::VirtualQuery(reinterpret_cast<void*>(address), &memory, sizeof memory) == 0 ||
      memory.Type != MEM_IMAGE) {
    return module;
  }
  const auto handle = static_cast<HMODULE>(memory.AllocationBase);
  module.base = reinterpret_cast<std::uintptr_t>(handle);
  IMAGEHLP_MODULE64 known{};
  known.SizeOfStruct = moduleSize;
  if (call.getModule && call.getModule(::GetCurrentProcess(), address, &known)) {
    std::memcpy(module.path.data(), known.ImageName, sizeof known.ImageName);
  } else {
    ::GetModuleFileNameA(handle, module.path.data(), DWORD{module.path.size()} - 1);
  }
  return module;
}

void appendName(Text& text, const char* name) noexcept {
  std::array<char, 1024> plain{};
  if (name[0] == '?' && call.undecorate(name, plain.data(), DWORD{plain.size()}, 0) > 0) {
    text << plain.data();
  } else if (name[0] == '_' && name[1] == 'Z') {
    Crash::appendPlainName(text, name);
  } else {
    text << name;
  }
}

/// Appends the function and the line of an address.
/// \param asked an address inside the function, \a address or before it
/// \return false when the function is not known
bool appendFunction(Text& text, std::uintptr_t asked, std::uintptr_t address) noexcept {
  struct Found {
    IMAGEHLP_SYMBOL64 symbol;
    std::array<char, 1024> rest;  // of the name, which begins in the structure
  };
  static Found found;
  found = {};
  found.symbol.SizeOfStruct = sizeof found.symbol;
  found.symbol.MaxNameLength = sizeof found.rest;
  DWORD64 offset = 0;
  if (!call.getSymbol(::GetCurrentProcess(), asked, &offset, &found.symbol)) {
    return false;
  }
  appendName(text, &found.symbol.Name[0]);
  text << "+";
  text.hexadecimal(offset + (address - asked));
  return true;
}

void appendLine(Text& text, std::uintptr_t asked) noexcept {
  IMAGEHLP_LINE64 line{};
  line.SizeOfStruct = sizeof line;
  DWORD offset = 0;
  if (call.getLine(::GetCurrentProcess(), asked, &offset, &line) && line.FileName) {
    text << " (" << line.FileName << ":";
    text.decimal(line.LineNumber) << ")";
  }
}

}  // namespace

const Crash::MetModules& Crash::metModules() noexcept {
  return met;
}

Crash::Symbols::Symbols() noexcept {
  if (!findAll()) {
    call = {};
    _error = ERROR_PROC_NOT_FOUND;
    return;
  }
  call.setOptions((call.getOptions() & ~DWORD{SYMOPT_UNDNAME}) | SYMOPT_LOAD_LINES |
                  SYMOPT_DEFERRED_LOADS | SYMOPT_FAIL_CRITICAL_ERRORS | SYMOPT_NO_PROMPTS);
  if (!call.initialize(::GetCurrentProcess(), symbolPath(), TRUE)) {
    _error = std::max(::GetLastError(), DWORD{1});
  }
}

Crash::Symbols::~Symbols() {
  if (_error == 0) {
    call.cleanup(::GetCurrentProcess());
  }
}

// In all frames but the first the line of the call is looked up: behind a call that does not return
// another line may stand, or another function.
void Crash::Symbols::printFrame(unsigned number, std::uintptr_t address) const noexcept {
  Text text;
  text << "#";
  text.decimal(number) << (number < 10 ? "  " : " ");
  text.hexadecimal(address) << " ";
  const Module module = moduleAt(address);
  if (!isCollecting()) {
    met.add(module.base);
  }
  const std::uintptr_t asked = number > 0 ? address - 1 : address;
  if (module.base == 0) {
    text << "?";
  } else {
    text << baseName(module.path.data());
    Text function;
    if (_error == 0 && appendFunction(function, asked, address)) {
      text << "!" << function.data();
      appendLine(text, asked);
    } else {
      text << "+";
      text.hexadecimal(address - module.base);
    }
  }
  write(text << "\n");
}

}  // namespace Kyr
