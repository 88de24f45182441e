#include <kyr/i18n/KyrTranslator.h>

#include <kyr/core/KyrApplication.h>
#include <kyr/core/KyrProgError.h>
#include <kyr/core/file_parse_error_p.h>
#include <kyr/env/settings_p.h>
#include <kyr/i18n/KyrTranslate.h>
#include <kyr/i18n/catalogue_p.h>
#include <kyr/i18n/language_p.h>
#include <kyr/i18n/translation_cache_p.h>
#include <kyr/os/KyrOS.h>
#include <kyr/text/KyrParse.h>

#include <QCoreApplication>
#include <QFile>
#include <QSaveFile>
#include <QTranslator>

#include <array>
#include <atomic>
#include <cstdio>
#include <cstring>

namespace Kyr {

namespace {

/// Support matches reports by these numbers; they do not follow edits of this file.
namespace site {
constexpr unsigned Create = 61, InitLanguage = 195;
}

struct Language {
  const char* shortcut;
  const char* name;  ///< in language files
  const char* display;
  unsigned primaryIdentifier;  ///< the low 10 bits of Windows language identifiers
  QLocale::Language numbers;
};

/// All languages, in the order of Translator::Lang_t.
constexpr std::array<Language, 6> languages{{
    {"en", "english", QT_TRANSLATE_NOOP("Kyr_Translator", "language: english"), 9,
     QLocale::English},
    {"de", "german", QT_TRANSLATE_NOOP("Kyr_Translator", "language: german"), 7, QLocale::German},
    {"fr", "french", QT_TRANSLATE_NOOP("Kyr_Translator", "language: french"), 12, QLocale::French},
    {"jp", "japanese", QT_TRANSLATE_NOOP("Kyr_Translator", "language: japanese"), 17,
     QLocale::Japanese},
    {"cn", "chinese", QT_TRANSLATE_NOOP("Kyr_Translator", "language: chinese"), 4,
     QLocale::Chinese},
    {"pt", "portuguese", QT_TRANSLATE_NOOP("Kyr_Translator", "language: portuguese"), 22,
     QLocale::Portuguese},
}};

std::atomic<Translator*> theInstance{nullptr};

bool isAllowed(std::size_t language, unsigned mask) {
  return language == Translator::English || (mask >> language & 1U) != 0;
}

/// The language of a shortcut; English for any other text.
Translator::Lang_t languageOf(const QString& shortcut) {
  std::size_t found = languages.size() - 1;
  while (found > 0 && shortcut != languages[found].shortcut) {
    --found;
  }
  return static_cast<Translator::Lang_t>(found);
}

QString allowedShortcut(const QString& shortcut, unsigned mask) {
  const auto language = static_cast<std::size_t>(languageOf(shortcut));
  return languages[isAllowed(language, mask) ? language : 0].shortcut;  // 0: English
}

QString shortcutOfIdentifier(unsigned identifier) {
  for (const Language& language : languages) {
    if (language.primaryIdentifier == (identifier & 0x3FFU)) {
      return language.shortcut;
    }
  }
  return languages[Translator::English].shortcut;
}

/// The language that the installation asks for, otherwise that of the system.
QString defaultShortcut() {
  const unsigned installed =
      qstringToUInt(OS::getRegistryValue(OS::RegistryUser, "InstallerLanguage"));
  return shortcutOfIdentifier(installed != 0 ? installed : Platform::userInterfaceLanguage());
}

QString languageFileName(const QString& applicationName) {
  return QString("%1_language.dat").arg(applicationName);
}

QString languageFileToRead(const QString& applicationName) {
  const QString name = languageFileName(applicationName);
  const QString own = Settings::versionFileName(name);
  return own.isEmpty() ? Settings::settled().software + "/config/" + name : own;
}

QByteArray withoutEndBlanks(QByteArray text) {
  while (text.endsWith('\n') || text.endsWith(' ') || text.endsWith('\t')) {
    text.chop(1);
  }
  return text;
}

/// The shortcut of a language's name; any other text as it is.
QString shortcutOfName(const QByteArray& text) {
  for (const Language& language : languages) {
    if (text == language.name) {
      return language.shortcut;
    }
  }
  return QString::fromUtf8(text);
}

/// The language that a file names in its first line.
/// \param otherwise for a file that cannot be read or names none
QString languageInFile(const QString& fileName, const QString& otherwise) {
  constexpr int longestLine = 1000;
  const QByteArray prefix = "language=";
  QFile file(fileName);
  if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) {
    return otherwise;
  }
  const QByteArray line = file.readLine(longestLine);
  return line.startsWith(prefix) ? shortcutOfName(withoutEndBlanks(line.mid(prefix.size())))
                                 : otherwise;
}

/// Writes a language file, whole or not at all: a name that is cut off would be no language.
bool writeLanguageFile(const QString& fileName, const QString& shortcut) {
  QSaveFile file(fileName);
  return file.open(QIODevice::WriteOnly) &&
         file.write("language=" + shortcut.toUtf8() + "\n") > 0 && file.commit();
}

/// The directories in which a catalogue is searched, in this order.
QStringList catalogueDirectories() {
  const QString& software = Settings::settled().software;
  QStringList directories = {Settings::settled().config.roaming};
  directories += Settings::catalogueDirectories(software);
  // The last ones serve programs that are not installed where the library is.
  for (const QString& root : Settings::libraryRoots()) {
    directories += Settings::catalogueDirectories(root);
  }
  return directories;
}

std::vector<std::unique_ptr<QTranslator>> loadCatalogue(const QString& file) {
  std::vector<std::unique_ptr<QTranslator>> catalogues;
  for (const QString& directory : catalogueDirectories()) {
    if (catalogues.empty() && !directory.isEmpty()) {
      catalogues = Catalogue::load(directory, file);
    }
  }
  return catalogues;
}

/// Whether the application has a user interface in the suite's sense. Programs that never start the
/// library, as tools and tests, have none.
bool hasUserInterface() {
  return Settings::isSettled() &&
         applicationProperties(Settings::settled().application).hasUserInterface;
}

/// \throws ProgError in an application with a user interface, which has to have a translator
void refuseUserInterface() {
  if (hasUserInterface()) {
    throw ProgError("No Translator instantiated", true);
  }
}

QString englishForm(const char* one, const char* many, quint64 number) {
  return QString::fromUtf8(number == 1 ? one : many);
}

/// A number that Qt can take, with the same plural form: no language looks further than at six
/// digits and at whether there are more.
int smallLikeIt(quint64 number) {
  constexpr quint64 million = 1000000;
  return static_cast<int>(number < million ? number : million + number % million);
}

}  // namespace

// ---- the language ----

Translator::Translator(unsigned mask, const QString& applicationName)
    : _changeable(true),
      _mutex("Kyr::Translator::Translator", "kyr_translator", site::Create),
      _cache(std::make_unique<TranslationCache>()) {
  const QString installed = defaultShortcut();
  const QString chosen = languageInFile(languageFileToRead(applicationName), installed);
  initLanguage(chosen, installed, mask);
}

Translator::Translator(const QString& language)
    : _changeable(false),
      _mutex("Kyr::Translator::Translator", "kyr_translator", site::Create),
      _cache(std::make_unique<TranslationCache>()) {
  initLanguage(language, language, allLanguages);
}

// A catalogue's destructor takes it out of the Qt application, if there still is one.
Translator::~Translator() {
  theInstance = nullptr;
}

void Translator::initLanguage(const QString& language, const QString& defaultLanguage,
                              unsigned mask) {
  Translator* none = nullptr;
  if (!theInstance.compare_exchange_strong(none, this)) {
    throw ProgError("Kyr::Translator::initLanguage", "kyr_translator", site::InitLanguage,
                    "trying to install second translator");
  }
  _languages = mask;
  _language = allowedShortcut(language, mask);
  _default_language = allowedShortcut(defaultLanguage, mask);
  installTranslator("qt");
}

Translator* Translator::instance() noexcept {
  return theInstance.load(std::memory_order_acquire);
}

Translator::Lang_t Translator::getLanguage() const {
  return languageOf(_language);
}

Translator::Lang_t Translator::getDefaultLanguage() const {
  return languageOf(_default_language);
}

void Translator::getAllLanguages(std::vector<QString>* shortcuts, std::vector<QString>* names) {
  shortcuts->clear();
  names->clear();
  for (std::size_t language = 0; language < languages.size(); ++language) {
    if (isAllowed(language, _languages)) {
      shortcuts->emplace_back(languages[language].shortcut);
      names->push_back(translate("Kyr_Translator", languages[language].display));
    }
  }
}

void Translator::setLanguage(Lang_t language) {
  if (!_changeable) {
    throw ProgError("Language is fixed", true);
  }
  const auto number = static_cast<unsigned>(language);
  if (number < languages.size()) {
    _language = languages[number].shortcut;
  }
  const QString file =
      Settings::createVersionFileName(languageFileName(Settings::applicationName()));
  if (!writeLanguageFile(file, _language)) {
    std::fprintf(stderr, "Warning: Cannot write '%s'.\n", file.toLocal8Bit().constData());
  }
}

// ---- the texts ----

void Translator::installTranslator(const char* name) {
  auto catalogues = loadCatalogue(QString("%1_%2.qm").arg(name, _language));
  if (catalogues.empty() && std::strcmp(name, "qt") != 0) {
    std::fprintf(stderr, "Warning: Cannot load translator messages for '%s'.\n", name);
  }
  for (auto& catalogue : catalogues) {
    if (QCoreApplication::instance()) {
      QCoreApplication::installTranslator(catalogue.get());
    }
    _translators.push_back(std::move(catalogue));
  }
}

QString Translator::translate(const char* context, const char* text) {
  if (!text) {
    return {};
  }
  const TranslationCache::Key key(context ? context : "", text);
  if (const QString* const known = _cache->find(key)) {
    return *known;
  }
  QString translation = QCoreApplication::translate(context, text);
  const AutoMutex lock(&_mutex);
  _cache->store(key, translation);
  return translation;
}

QString Translator::translate(const char* context, const char* one, const char* many,
                              quint64 number) {
  if (!one) {
    return {};
  }
  const QString form = QCoreApplication::translate(context, one, many, smallLikeIt(number));
  // What Qt does not find it gives back. Only for 1 (in French for 0 as well) may a translation
  // have the same words; the form for 2 tells which it was.
  const bool isFound =
      form != QString::fromUtf8(one) || QCoreApplication::translate(context, one, many, 2) != form;
  return isFound ? form : englishForm(one, many, number);
}

QString translate(const char* context, const char* text) {
  if (Translator* const translator = Translator::instance()) {
    return translator->translate(context, text);
  }
  refuseUserInterface();
  return QString::fromUtf8(text);
}

QString translate(const char* context, const char* one, const char* many, quint64 number) {
  if (Translator* const translator = Translator::instance()) {
    return translator->translate(context, one, many, number);
  }
  refuseUserInterface();
  return one ? englishForm(one, many, number) : QString();
}

QLocale userLocale() {
  const Translator* const translator = Translator::instance();
  return QLocale(languages[translator ? translator->getLanguage() : Translator::English].numbers);
}

QString translate(const FileParse::Error& error) {
  const FileParse::Finding* const finding = FileParse::findingOf(error);
  return finding == nullptr ? error.getText() : FileParse::sentence(*finding, [](const char* text) {
    return translate(FileParse::findingContext, text);
  });
}

void installTranslator(const char* name) {
  if (Translator* const translator = Translator::instance()) {
    translator->installTranslator(name);
  }
}

}  // namespace Kyr
