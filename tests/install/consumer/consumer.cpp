// The smallest program on top of an installed library: uses its data, a function, a class with a
// virtual table, and its texts, from wherever it lies. It includes all headers, and one by the path
// that it had in earlier versions.
#include <kyr/Kyr.h>
#include <kyr/app/KyrNewHandler.h>

#include <QCoreApplication>

#include <cstdio>

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  QStringList arguments = QCoreApplication::arguments();
  Kyr::KyrInit::InitLibrary(Kyr::StartOptions(), arguments);
  Kyr::KyrInit::InitTranslator("de");
  try {
    throw Kyr::FileParse::EndOfFile("caught");
  } catch (const Kyr::Exception& error) {
    const QString language = Kyr::translate("Kyr_Translator", "language: german");
    std::printf("%s %s %s %s\n", Kyr::libraryVersion(), error.what(), qPrintable(language),
                qPrintable(Kyr::KyrInit::getSoftwareDirectory()));
  }
  Kyr::KyrInit::CloseTranslator();
  Kyr::KyrInit::CloseLibrary();
  return 0;
}
