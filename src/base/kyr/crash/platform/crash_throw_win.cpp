#include <kyr/crash/crash_throw_p.h>

#include <windows.h>

namespace Kyr {

void* Crash::findThrowFunction() noexcept {
  const HMODULE library = ::GetModuleHandleW(L"libstdc++-6.dll");
  return reinterpret_cast<void*>(::GetProcAddress(library, "__cxa_throw"));
}

}  // namespace Kyr
