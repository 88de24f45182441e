#include <kyr/i18n/language_p.h>

#include <kyr/os/KyrOS.h>

#include <QStringList>

namespace Kyr {

namespace {

constexpr unsigned english = 0x09;

/// The Windows identifier of a locale's language.
/// \param locale as "de", "de_DE.UTF-8" or "de@euro"
/// \return 0 for a language that the library does not know
unsigned identifierOf(const QString& locale) {
  constexpr struct {
    const char* code;
    unsigned identifier;
  } table[] = {{"en", english}, {"de", 0x07}, {"fr", 0x0C},
               {"ja", 0x11},    {"zh", 0x04}, {"pt", 0x16}};
  const bool hasTwoLetters = locale.size() == 2 || (locale.size() > 2 && !locale[2].isLetter());
  for (const auto& row : table) {
    if (hasTwoLetters && locale.startsWith(row.code)) {
      return row.identifier;
    }
  }
  return 0;
}

/// Whether a locale means the texts as they stand in programs.
bool isUntranslated(const QString& locale) {
  return locale == "C" || locale == "POSIX";
}

unsigned firstKnown(const QStringList& locales) {
  for (const QString& locale : locales) {
    const unsigned identifier = isUntranslated(locale) ? english : identifierOf(locale);
    if (identifier != 0) {
      return identifier;
    }
  }
  return english;
}

/// The locale that the environment sets for messages; empty when it sets none.
QString localeOfMessages() {
  for (const char* variable : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    QString value = OS::getEnv(variable);
    if (!value.isEmpty()) {
      return value;
    }
  }
  return {};
}

}  // namespace

// Follows the rules of GNU gettext, so that one setting serves all programs; but LANGUAGE counts
// also where no locale is set, which gettext takes for the locale "C".
unsigned Platform::userInterfaceLanguage() {
  const QString locale = localeOfMessages();
  const QString languages = OS::getEnv("LANGUAGE");
  return isUntranslated(locale) || languages.isEmpty() ? firstKnown({locale})
                                                       : firstKnown(languages.split(':'));
}

}  // namespace Kyr
