// The language that a user of Windows finds.
#include "app/home.h"
#include "app/registry.h"

#include <kyr/i18n/KyrTranslator.h>

#include <windows.h>

using namespace Kyr;

namespace {

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
      KyrTest::registerValue(OS::RegistryUser, L"InstallerLanguage", row.installed);
      home.say(Translator(63, "Motion").getLanguageShortcut());
    });
    EXPECT_EQ(home.said(), row.language) << row.catches;
  }
}

}  // namespace
