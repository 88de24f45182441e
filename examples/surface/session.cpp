#include "surface/session.h"

#include "surface/session_p.h"

#include <kyr/env/KyrInit.h>
#include <kyr/i18n/KyrTranslator.h>
#include <kyr/os/KyrOS.h>

#include <QCoreApplication>

namespace Surface {

namespace {

void keepTerminal() {
  if (Kyr::OS::getEnv("KYR_CONSOLE").isNull()) {
    Kyr::OS::setEnv("KYR_CONSOLE", "terminal");
  }
}

}  // namespace

Session::Session(Kyr::Application_t application) {
  keepTerminal();
  assumeUtf8();
  _arguments = QCoreApplication::arguments();
  Kyr::KyrInit::InitLibrary(application, _arguments);
  Kyr::KyrInit::InitTranslator(Kyr::Translator::allLanguages, {});
  Kyr::installTranslator("Examples");
}

Session::~Session() {
  Kyr::KyrInit::CloseTranslator();
  Kyr::KyrInit::CloseLibrary();
}

}  // namespace Surface
