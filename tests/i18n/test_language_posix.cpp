// The language that a user of Linux finds.
#include "app/home.h"

#include <kyr/i18n/KyrTranslator.h>

using namespace Kyr;

TEST(Language, ComesFromTheInstallationOrTheSystem) {
  const struct {
    QByteArray installed;
    const char* variables[4];  // LC_ALL, LC_MESSAGES, LANGUAGE, LANG
    unsigned mask;
    const char* language;
    const char* catches;
  } rows[] = {
      {"", {"", "", "", "de_DE.UTF-8"}, 63 - 2, "en", "a language that is not offered"},
      {"", {"", "", "nl:fr:de", "de"}, 63, "fr", "a list; its unknown first one"},
      {"", {"ja_JP.utf8", "pt", "C.UTF-8:fr", "de"}, 63, "fr", "LANGUAGE behind another"},
      {"", {"ja_JP.utf8", "pt", "", "de"}, 63, "jp", "LC_ALL behind LC_MESSAGES or LANG"},
      {"", {"", "pt_BR", "", "de"}, 63, "pt", "LC_MESSAGES behind LANG"},
      {"", {"C", "", "de", "zh@x"}, 63, "en", "LANGUAGE, or another locale, in spite of C"},
      {"", {"de", "", "nl:POSIX:de", ""}, 63, "en", "an entry behind POSIX"},
      {"", {"de", "", "nl", "fr"}, 63, "en", "the locale where LANGUAGE has no known language"},
      {"", {"", "", "de", ""}, 63, "de", "no locale at all is C"},
      {"", {"", "", "", "zh@x"}, 63, "cn", "a modifier"},
      {"", {"", "", "", "der_XX"}, 63, "en", "another language that begins the same"},
      {"1031", {"fr", "", "", ""}, 63, "de", "the installer's language"},
      {"3084", {"de", "", "", ""}, 63, "fr", "a variety of a language"},
      {"1043", {"de", "", "", ""}, 63, "en", "a language that is not known"},
      {"0", {"de", "", "", ""}, 63, "de", "0 is a language"},
      {"0x407", {"fr", "", "", ""}, 63, "fr", "no decimal number"},
  };
  const KyrTest::Home home;
  for (const auto& row : rows) {
    KyrTest::writeFile(
        home.file("ORV.conf"),
        "[General]\n" +
            (row.installed.isEmpty() ? QByteArray() : "InstallerLanguage=" + row.installed));
    KyrTest::inChild([&] {
      home.start({{"XDG_CONFIG_HOME", home.path()},
                  {"LC_ALL", row.variables[0]},
                  {"LC_MESSAGES", row.variables[1]},
                  {"LANGUAGE", row.variables[2]},
                  {"LANG", row.variables[3]}});
      const Translator translator(row.mask, "Motion");
      home.say(translator.getLanguageShortcut());
    });
    EXPECT_EQ(home.said(), row.language) << row.catches;
  }
}
