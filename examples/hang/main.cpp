/// \file
/// A program that hangs, to show what a heartbeat tells of it: its main thread wants to show a
/// project, and waits for a lock that the thread which saves the project keeps for long.
///
///   hang --patience 1000 --save 3000
///
/// Exit codes: 0 it hung, or beat as it should, and lived on; 2 wrong usage.

#include <kyr/app/KyrInit.h>
#include <kyr/crash/KyrHeartbeat.h>
#include <kyr/recorder/KyrFlightRecorder.h>
#include <kyr/sync/KyrMutex.h>
#include <kyr/sync/KyrThread.h>

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QTimer>

#include <cstdio>
#include <memory>

namespace {

/// What the user asks for, in milliseconds.
struct Options {
  int patience = 1000;
  int save = 0;
  int beat = 0;
  QString journal;
};

/// Guards the project that is shown and saved.
Kyr::Mutex project("project", "hang", 1);
bool isShown = false;

/// Keeps the project for long.
class Saver : public Kyr::Thread {
 public:
  explicit Saver(int duration) : Thread(NoLockGUI, "Saver", "hang", 2), _duration(duration) {
    setObjectName("saver");
  }
  void waitForBegin() {
    const Kyr::AutoMutex locked(&_mutex);
    while (!_hasBegun) {
      _begun.wait();
    }
  }

 protected:
  void run() override { saveProject(); }

 private:
  void saveProject() {
    const Kyr::AutoMutex locked(&project);
    Kyr::FlightRecorder::note("saver", "the project is saved");
    {
      const Kyr::AutoMutex beginning(&_mutex);
      _hasBegun = true;
      _begun.broadcast();
    }
    msleep(static_cast<unsigned long>(_duration));
  }

  const int _duration;
  bool _hasBegun = false;
  Kyr::Mutex _mutex{"Saver", "hang", 3};
  Kyr::Condition _begun{"Saver", "hang", 4, &_mutex};
};

void showProject() {
  const Kyr::AutoMutex locked(&project);
  isShown = true;
}

/// Has the event loop run for so long; the heartbeat lives from it.
void runEvents(int duration) {
  QTimer::singleShot(duration, QCoreApplication::instance(), &QCoreApplication::quit);
  QCoreApplication::exec();
}

Options parse(const QStringList& arguments) {
  QCommandLineParser parser;
  parser.setApplicationDescription("Hangs while a lock is kept by another thread.");
  parser.addHelpOption();
  const QCommandLineOption patience("patience", "how long a hang is", "milliseconds", "1000");
  const QCommandLineOption save("save", "how long the lock is kept", "milliseconds", "0");
  const QCommandLineOption beat("beat", "how long the program works before", "milliseconds", "0");
  const QCommandLineOption journal("journal", "where messages go", "file");
  parser.addOptions({patience, save, beat, journal});
  parser.process(arguments);
  Options options;
  bool isPatience = false;
  bool isSave = false;
  bool isBeat = false;
  options.patience = parser.value(patience).toInt(&isPatience);
  options.save = parser.value(save).toInt(&isSave);
  options.beat = parser.value(beat).toInt(&isBeat);
  options.journal = parser.value(journal);
  if (!isPatience || !isSave || !isBeat || !parser.positionalArguments().isEmpty()) {
    std::fputs("hang: wrong words\nTry hang --help.\n", stderr);
    std::exit(2);
  }
  return options;
}

}  // namespace

int main(int argc, char** argv) {
  QCoreApplication application(argc, argv);
  QStringList arguments = QCoreApplication::arguments();
  const Options options = parse(arguments);
  Kyr::StartOptions start;
  start.name = "hang";
  Kyr::KyrInit::InitLibrary(start, arguments);
  std::unique_ptr<Kyr::Journal> journal;
  if (!options.journal.isEmpty()) {
    journal = std::make_unique<Kyr::Journal>(options.journal);
  }
  Kyr::HeartbeatOptions watched;
  watched.patience = options.patience;
  watched.name = "main";
  watched.journal = journal.get();
  Kyr::Heartbeat heartbeat(watched);
  heartbeat.beatInEventLoop();
  runEvents(options.beat);
  if (options.save > 0) {
    Saver saver(options.save);
    saver.start();
    saver.waitForBegin();
    showProject();
    runEvents(options.patience);
    saver.wait();
  }
  std::puts(isShown ? "the project is shown" : "nothing hung");
  Kyr::KyrInit::CloseLibrary();
  return 0;
}
