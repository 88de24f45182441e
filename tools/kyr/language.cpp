#include "language.h"

#include "arguments.h"

#include <kyr/i18n/KyrTranslate.h>
#include <kyr/i18n/KyrTranslator.h>

#include <memory>

namespace KyrTool {

namespace {

std::unique_ptr<Kyr::Translator> translator;

}  // namespace

// English texts stand in the program, so a tool without its catalogues has nothing to complain of.
void useLanguageOfUser() {
  translator.reset();
  translator = std::make_unique<Kyr::Translator>(Kyr::Translator::allLanguages, "kyr");
  if (translator->getLanguage() != Kyr::Translator::English) {
    translator->installTranslator("Kyr");
    translator->installTranslator("KyrTool");
  }
}

void useLanguage(const QString& shortcut) {
  translator.reset();
  translator = std::make_unique<Kyr::Translator>(shortcut);
  if (translator->getLanguageShortcut() != shortcut) {
    useLanguageOfUser();
    throw UsageError{Kyr::translate("Kyr_tool", "--language takes one of en, de, fr, jp, cn, pt")};
  }
  translator->installTranslator("Kyr");
  // Every catalogue has a name for this key, the English one too.
  const char* const key = "language: english";
  if (shortcut != "en" && Kyr::translate("Kyr_Translator", key) == key) {
    throw FileError{Kyr::translate("Kyr_tool", "Kyr_%1.qm: cannot be read").arg(shortcut)};
  }
}

void forgetLanguage() {
  translator.reset();
}

}  // namespace KyrTool
