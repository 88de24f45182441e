// The language that a user of Windows finds.
#include "app/home.h"

#include <kyr/i18n/KyrTranslator.h>

#include <gtest/gtest.h>

#include <windows.h>

using namespace Kyr;

namespace {

/// In a child: gives the process a registry of its own user, with one value.
void registerLanguage(const wchar_t* text) {
  HKEY user = nullptr;
  HKEY key = nullptr;
  ::RegCreateKeyExW(HKEY_CURRENT_USER, L"Software\\KyrTestLanguage", 0, nullptr,
                    REG_OPTION_VOLATILE, KEY_ALL_ACCESS, nullptr, &user, nullptr);
  ::RegOverridePredefKey(HKEY_CURRENT_USER, user);
  ::RegCreateKeyExW(user, L"Software\\ORV", 0, nullptr, REG_OPTION_VOLATILE, KEY_ALL_ACCESS,
                    nullptr, &key, nullptr);
  const auto size = static_cast<DWORD>(wcslen(text) * sizeof(wchar_t));  // not with its zero
  ::RegSetValueExW(key, L"InstallerLanguage", 0, REG_SZ, reinterpret_cast<const BYTE*>(text), size);
}

std::string systemLanguage() {
  switch (::GetUserDefaultUILanguage() & 0x3FF) {
    case LANG_GERMAN:
      return "de";
    case LANG_FRENCH:
      return "fr";
    default:
      return "en";
  }
}

TEST(Language, ComesFromTheInstallationOrTheSystem) {
  const struct {
    const wchar_t* installed;
    std::string language;
    const char* catches;
  } rows[] = {
      {L"1031", "de", "the installer's language; what is behind the text in memory"},
      {L"0", systemLanguage(), "0 is a language"},
      {L"", systemLanguage(), "no number"},
  };
  const KyrTest::Home home;
  for (const auto& row : rows) {
    KyrTest::inChild([&] {
      home.start({});
      registerLanguage(row.installed);
      home.say(Translator(63, "Motion").getLanguageShortcut());
    });
    EXPECT_EQ(home.said(), row.language) << row.catches;
  }
}

}  // namespace
