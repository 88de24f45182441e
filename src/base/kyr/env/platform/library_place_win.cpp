#include <kyr/env/library_place_p.h>

#include <QFileInfo>

#include <array>

#include <windows.h>

namespace Kyr {

QString Platform::libraryDirectory() {
  constexpr DWORD known =
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
  std::array<wchar_t, 32768> path{};  // no path is longer
  HMODULE library = nullptr;
  const auto* const inside = reinterpret_cast<LPCWSTR>(&Platform::libraryDirectory);
  const bool found = ::GetModuleHandleExW(known, inside, &library) != 0 &&
                     ::GetModuleFileNameW(library, path.data(), DWORD(path.size())) < path.size();
  return found ? QFileInfo(QString::fromWCharArray(path.data())).path() : QString();
}

}  // namespace Kyr
