#include <kyr/app/KyrInit.h>

#include <kyr/app/program_lines_p.h>

#include <kyr/i18n/KyrTranslator.h>

#include <memory>

namespace Kyr {

namespace {

/// The translator registers itself as the process-wide one, and is owned by that register.
void install(std::unique_ptr<Translator> translator) {
  translator.release()->installTranslator("Kyr");
  Start::prepareNotice();
}

}  // namespace

void KyrInit::InitTranslator(const QString& language) {
  install(std::make_unique<Translator>(language));
}

void KyrInit::InitTranslator(unsigned mask, const QString& applicationName) {
  const QString name = applicationName.isEmpty() ? getApplicationName() : applicationName;
  install(std::make_unique<Translator>(mask, name));
}

void KyrInit::CloseTranslator() {
  delete Translator::instance();
}

}  // namespace Kyr
