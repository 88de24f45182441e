#include <kyr/i18n/language_p.h>

#include <kyr/os/KyrOS.h>

#include <QFile>
#include <QFileInfo>

#include <dlfcn.h>

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

/// The locales that mean the texts as they stand in programs.
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

/// \return empty when nobody sets it
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

// As GNU's gettext, so that one setting serves all programs; but LANGUAGE counts without a locale
// too, where gettext sees the locale "C".
unsigned Platform::userInterfaceLanguage() {
  const QString locale = localeOfMessages();
  const QString languages = OS::getEnv("LANGUAGE");
  return isUntranslated(locale) || languages.isEmpty() ? firstKnown({locale})
                                                       : firstKnown(languages.split(':'));
}

// Of a link to the library the target counts: catalogues lie with what was installed.
QString Platform::libraryDirectory() {
  Dl_info library = {};
  const bool found = ::dladdr(reinterpret_cast<void*>(&Platform::libraryDirectory), &library) != 0;
  const QString file = found ? QFile::decodeName(library.dli_fname) : QString();
  const QString target = QFileInfo(file).canonicalFilePath();
  return target.isEmpty() ? QString() : QFileInfo(target).path();
}

}  // namespace Kyr
