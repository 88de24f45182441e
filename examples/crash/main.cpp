/// \file
/// A program that dies as it is told, to show what a crash leaves behind: a report on standard
/// error and a dump in the temporary directory.
///
///   KYR_CONSOLE=on crash --kind null-read --in-thread --threads 8
///
/// Exit codes: 1 it died as it should, and the report has come out; 2 wrong usage; 3 it lived on.

#include "crew.h"
#include "faults.h"

#include <kyr/app/KyrInit.h>
#include <kyr/core/KyrProgError.h>

#include <QCommandLineParser>
#include <QCoreApplication>

#include <cstdio>
#include <cstdlib>
#include <thread>

namespace {

constexpr int mostThreads = 256;

/// What the user asks for.
struct Options {
  const Crash::Fault* fault = nullptr;
  int threads = 0;
  bool inThread = false;
  bool inForeignThread = false;
  QString hook;
};

[[noreturn]] void refuseUsage(const QString& problem) {
  std::fprintf(stderr, "crash: %s\nTry crash --help.\n", problem.toLocal8Bit().constData());
  std::exit(2);
}

/// Shows the help, for which the parser wants an application object with the program's name.
[[noreturn]] void showHelp(const QCommandLineParser& parser, const QString& program) {
  QByteArray name = program.toLocal8Bit();
  int count = 1;
  char* words[] = {name.data(), nullptr};
  const QCoreApplication application(count, words);
  std::fputs(parser.helpText().toLocal8Bit().constData(), stdout);
  std::exit(0);
}

const Crash::Fault* findFault(const QCommandLineParser& parser) {
  if (parser.value("kind").isEmpty()) {
    refuseUsage("--kind is missing");
  }
  const Crash::Fault* const fault = Crash::findFault(parser.value("kind"));
  if (!fault) {
    refuseUsage("no kind is called \"" + parser.value("kind") + "\"");
  }
  return fault;
}

Options parse(const QStringList& arguments) {
  QCommandLineParser parser;
  parser.setApplicationDescription("Dies in one of these ways:\n" + Crash::listOfFaults());
  const QCommandLineOption help("help", "shows this");
  const QCommandLineOption kind("kind", "the way to die", "kind");
  const QCommandLineOption inThread("in-thread", "dies in another than the main thread");
  const QCommandLineOption inForeign("in-foreign-thread",
                                     "dies in a thread that is not one of the library's");
  const QCommandLineOption threads("threads", "how many threads wait meanwhile", "number", "0");
  const QCommandLineOption hook("hook", "a last act: say something, or crash again", "say|crash");
  const QCommandLineOption note("note", "does nothing, but stands in the report", "text");
  const QCommandLineOption password("password", "does nothing, and stands in no report", "text");
  parser.addOptions({help, kind, inThread, inForeign, threads, hook, note, password});
  if (!parser.parse(arguments)) {
    refuseUsage(parser.errorText());
  }
  if (parser.isSet(help)) {
    showHelp(parser, arguments.first());
  }
  if (!parser.positionalArguments().isEmpty()) {
    refuseUsage("\"" + parser.positionalArguments().first() + "\" is no option");
  }
  Options options;
  options.fault = findFault(parser);
  bool isNumber = false;
  options.threads = parser.value(threads).toInt(&isNumber);
  if (!isNumber || options.threads < 0 || options.threads > mostThreads) {
    refuseUsage(QString("--threads takes a number from 0 to %1").arg(mostThreads));
  }
  options.inThread = parser.isSet(inThread);
  options.inForeignThread = parser.isSet(inForeign);
  options.hook = parser.value(hook);
  return options;
}

void setHook(const QString& name) {
  if (name == "say") {
    Kyr::setFatalErrorHook([] { std::fputs("\nthe hook was here\n", stderr); });
  } else if (name == "crash") {
    Kyr::setFatalErrorHook([] { Crash::findFault("null-write")->commit(); });
  } else if (!name.isEmpty()) {
    refuseUsage("the hook can say something or crash");
  }
}

void die(const Options& options) {
  if (options.inThread) {
    Crash::Worker worker(options.fault->commit);
    worker.start();
    worker.wait();
  } else if (options.inForeignThread) {
    std::thread(options.fault->commit).join();
  } else {
    options.fault->commit();
  }
}

}  // namespace

int main(int argc, char** argv) {
  QStringList arguments;
  for (int i = 0; i < argc; ++i) {
    arguments << QString::fromLocal8Bit(argv[i]);
  }
  const Options options = parse(arguments);
  Kyr::KyrInit::InitLibrary(Kyr::ApplicationViewer, arguments);
  setHook(options.hook);
  const Crash::Crew crew(options.threads);
  die(options);
  return 3;
}
