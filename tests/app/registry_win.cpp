#include "app/registry.h"

#include <cwchar>
#include <string>

#include <windows.h>

void KyrTest::registerValue(Kyr::OS::RegistryScope_t scope, const wchar_t* name,
                            const wchar_t* text) {
  HKEY hive = nullptr;
  HKEY key = nullptr;
  const std::wstring place = L"Software\\KyrTest-" + std::to_wstring(::GetCurrentProcessId());
  ::RegCreateKeyExW(HKEY_CURRENT_USER, place.c_str(), 0, nullptr, REG_OPTION_VOLATILE,
                    KEY_ALL_ACCESS, nullptr, &hive, nullptr);
  ::RegCreateKeyExW(hive, L"Software\\ORV", 0, nullptr, REG_OPTION_VOLATILE, KEY_ALL_ACCESS,
                    nullptr, &key, nullptr);
  const auto size = static_cast<DWORD>(std::wcslen(text) * sizeof(wchar_t));
  ::RegSetValueExW(key, name, 0, REG_SZ, reinterpret_cast<const BYTE*>(text), size);
  ::RegOverridePredefKey(scope == Kyr::OS::RegistryMachine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER,
                         hive);
}
