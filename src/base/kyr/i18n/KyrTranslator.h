/// \file
/// The language of the user and the catalogues of its texts.
#pragma once

#include <kyr/core/KyrPlatform.h>
#include <kyr/sync/KyrMutex.h>

#include <QString>

#include <memory>
#include <vector>

class QTranslator;

namespace Kyr {

class TranslationCache;

/// The process-wide translator: settles the language once and answers translate().
///
/// KyrInit::InitTranslator() creates the only one, behind KyrInit::InitLibrary() and the Qt
/// application object, and KyrInit::CloseTranslator() deletes it, both on the main thread.
/// Without an application object no text is translated. Answers are kept for as long as the
/// translator lives, so install catalogues before somebody asks for their texts.
/// \threadsafety translate() on any thread; all else as its functions say
class KYR_EXPORT Translator {
 public:
  /// The languages. The numbers are stored in settings and never change; those of the bits in a
  /// mask of languages are the same: 1 for English, which is always allowed, 2 for German, ...
  enum Lang_t : int {
    English = 0,     ///< "en"
    German = 1,      ///< "de"
    French = 2,      ///< "fr"
    Japanese = 3,    ///< "jp"
    Chinese = 4,     ///< "cn"
    Portuguese = 5,  ///< "pt"
  };
  static constexpr unsigned allLanguages = 63;  ///< the mask that allows every language

  /// A translator for the language that the user has chosen, otherwise for the one of the
  /// installation, otherwise for that of the system's interface.
  ///
  /// On Linux the system's language is that of the first variable that is set and not empty:
  /// LANGUAGE (of its list the first entry known here), LC_ALL, LC_MESSAGES, LANG. The locales
  /// "C" and "POSIX" mean English, and LANGUAGE does not count with them.
  /// \param mask the languages that the application offers, a bit for each; English takes the
  ///        place of the others
  /// \param applicationName whose language file is read
  /// \throws ProgError "trying to install second translator"
  Translator(unsigned mask, const QString& applicationName);
  /// A translator whose language stays as it is.
  /// \param language a shortcut; any text that is none counts as "en"
  /// \throws ProgError "trying to install second translator"
  explicit Translator(const QString& language);
  Translator(const Translator&) = delete;
  Translator& operator=(const Translator&) = delete;
  /// Takes its catalogues out of the Qt application.
  virtual ~Translator();

  /// The process-wide translator.
  /// \return null while there is none
  /// \threadsafety any thread
  static Translator* instance() noexcept;

  /// Loads the catalogue \a name + "_" + shortcut + ".qm" and installs it into the Qt
  /// application: from the user's configuration directory, otherwise from "messages" of the
  /// software directory, otherwise from "messages" in the library's directory, beside it or one
  /// further up. Beside each "messages" the same folder is meant as distributions have it,
  /// "share/kyr/messages", with the name that KYR_FOLDER had in the build. If none has the
  /// catalogue, a warning goes to standard error. One that is damaged, so that look-ups would end
  /// the process, is named there and counts as missing.
  /// \param name as "Kyr"; of "qt", the texts of Qt itself, nobody is warned
  /// \threadsafety the main thread
  void installTranslator(const char* name);

  /// As the free function translate().
  /// \threadsafety any thread; takes a lock only for a text that nobody asked for before
  QString translate(const char* context, const char* text);
  /// As the free function translate() for texts that have a number.
  /// \threadsafety any thread
  QString translate(const char* context, const char* one, const char* many, quint64 number);

  /// The language of the texts.
  /// \threadsafety this and the three below: while no other thread calls setLanguage()
  Lang_t getLanguage() const;
  /// The language that the installation or the system asks for.
  Lang_t getDefaultLanguage() const;
  /// The language as two letters, as "de".
  const QString& getLanguageShortcut() const { return _language; }
  /// Lists the languages that the application offers, in the order of their numbers.
  /// \param shortcuts, names emptied first; not null. The same index means the same language,
  ///        the name is in the language of the user
  void getAllLanguages(std::vector<QString>* shortcuts, std::vector<QString>* names);

  /// Chooses the language for the next start of the running application; the texts of this one
  /// stay as they are. A file that cannot be written is reported on standard error.
  /// \param language any other number keeps the present one
  /// \throws ProgError "Language is fixed"
  /// \threadsafety the main thread
  void setLanguage(Lang_t language);

 private:
  KYR_HIDDEN void initLanguage(const QString& language, const QString& defaultLanguage,
                               unsigned mask);

  QString _language;
  QString _default_language;
  const bool _changeable;
  std::vector<std::unique_ptr<QTranslator>> _translators;
  Mutex _mutex;  // held by whoever stores into the cache; reading the cache needs no lock
  const std::unique_ptr<TranslationCache> _cache;
  unsigned _languages = 0;  // a bit for each language that is allowed
};

/// Installs a catalogue with the process-wide translator; does nothing when there is none.
/// \threadsafety the main thread
KYR_EXPORT void installTranslator(const char* name);

}  // namespace Kyr
