#include "surface/session.h"

#include "surface/session_p.h"

#include <kyr/app/KyrInit.h>
#include <kyr/i18n/KyrTranslator.h>
#include <kyr/os/KyrOS.h>

#include <QCoreApplication>

namespace Surface {

Session::Session(Kyr::Application_t application) {
  assumeUtf8();
  _arguments = QCoreApplication::arguments();
  Kyr::StartOptions options;
  options.application = application;
  options.keepStreams = Kyr::OS::getEnv("KYR_CONSOLE").isNull();
  Kyr::KyrInit::InitLibrary(options, _arguments);
  Kyr::KyrInit::InitTranslator(Kyr::Translator::allLanguages, {});
  Kyr::installTranslator("Examples");
}

Session::~Session() {
  Kyr::KyrInit::CloseTranslator();
  Kyr::KyrInit::CloseLibrary();
}

}  // namespace Surface
