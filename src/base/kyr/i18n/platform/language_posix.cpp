#include <kyr/i18n/language_p.h>

#include <kyr/os/KyrOS.h>

namespace Kyr {

namespace {

constexpr unsigned english = 0x09;

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

unsigned firstKnown(const QStringList& locales) {
  for (const QString& locale : locales) {
    if (const unsigned identifier = identifierOf(locale)) {
      return identifier;
    }
  }
  return english;
}

}  // namespace

// LC_ALL comes before LANGUAGE, unlike in GNU's gettext: who sets it for one program means it.
unsigned Platform::userInterfaceLanguage() {
  for (const char* variable : {"LC_ALL", "LC_MESSAGES", "LANGUAGE", "LANG"}) {
    const QString value = OS::getEnv(variable);
    if (!value.isEmpty()) {
      return firstKnown(value.split(':'));
    }
  }
  return english;
}

}  // namespace Kyr
