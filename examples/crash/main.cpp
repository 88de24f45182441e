/// \file
/// A program that dies as it is told, to show what a crash leaves behind: a report on standard
/// error and a dump in the temporary directory.
///
///   KYR_CONSOLE=on crash --kind null-read --in-thread --threads 8
///
/// What it left in files of its own it shows at its next start, as an application may:
///
///   crash --kind null-read; KYR_CONSOLE=on crash --last
///
/// Exit codes: 0 it showed its last report; 1 it died as it should, and the report has come out;
/// 2 wrong usage; 3 it lived on.

#include "crew.h"
#include "faults.h"

#include <kyr/app/KyrInit.h>
#include <kyr/core/KyrProgError.h>
#include <kyr/recorder/KyrFlightRecorder.h>

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDateTime>

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
  bool shows = false;
  bool acknowledges = false;
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
  const QCommandLineOption last("last", "shows the last report of this program, and lives on");
  const QCommandLineOption seen("seen", "as --last, which calls it seen from then on");
  parser.addOptions({help, kind, inThread, inForeign, threads, hook, note, password, last, seen});
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
  options.acknowledges = parser.isSet(seen);
  options.shows = parser.isSet(last) || options.acknowledges;
  options.fault = options.shows ? nullptr : findFault(parser);
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

/// Shows the last report of a crash of this application, as it could at its start.
/// \return the exit code
int showLast(bool acknowledges) {
  const std::optional<Kyr::CrashReport> last = Kyr::KyrInit::lastCrash();
  if (!last) {
    std::puts("no crash is known");
    return 0;
  }
  const QString time = QDateTime::fromSecsSinceEpoch(last->seconds, Qt::UTC).toString(Qt::ISODate);
  std::printf("%s%s %s: %s%s\n%s\n%s\n", last->isSeen ? "seen: " : "",
              qPrintable(last->application), qPrintable(time), qPrintable(last->fault),
              last->isWhole ? "" : " (the report is not whole)", qPrintable(last->path),
              qPrintable(last->dump));
  if (acknowledges) {
    Kyr::CrashReports::acknowledge(*last);
  }
  return 0;
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
  if (options.shows) {
    return showLast(options.acknowledges);
  }
  setHook(options.hook);
  const Crash::Crew crew(options.threads);
  Kyr::FlightRecorder::note("crash", options.fault->kind);
  die(options);
  return 3;
}
