#include <kyr/os/KyrOS.h>
#include <kyr/os/os_environment_p.h>
#include <kyr/os/os_process_p.h>
#include <kyr/os/os_reason_p.h>

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QProcessEnvironment>
#include <QStandardPaths>
#include <QSysInfo>

#include <algorithm>
#include <atomic>

namespace Kyr {

namespace {

constexpr const char* cannotStart = "cannot start %1";

/// What the system answered, and which process had asked.
struct Told {
  unsigned pid = 0;
  QByteArray text;
};

/// Asks the system until it answers, and keeps the answer for good, as threads may want it to the
/// very end. A forked child asks for itself.
QByteArray askOnce(std::atomic<const Told*>& told, QByteArray (*ask)()) {
  const unsigned pid = OS::getPID();
  const Told* known = told;
  if (known && known->pid == pid) {
    return known->text;
  }
  auto now = std::make_unique<Told>(Told{pid, ask()});
  QByteArray text = now->text;
  if (!text.isEmpty() && told.compare_exchange_strong(known, now.get())) {
    static_cast<void>(now.release());
  }
  return text;
}

QByteArray fingerprint(const QByteArray& text) {
  return QCryptographicHash::hash(text, QCryptographicHash::Md5).toHex();
}

/// Eight characters that stand for a text in the name of a file; none for the empty text.
QString mark(const QByteArray& text) {
  return text.isEmpty() ? QString() : fingerprint(text).left(8);
}

/// Where the number of a process means the same as here; empty when the system does not tell.
QString placeMark() {
  const QByteArray machine = Platform::ownMachine();
  const QByteArray host = QSysInfo::machineHostName().toUtf8();
  return machine.isEmpty() ? QString()
                           : mark(host + ' ' + Platform::processSpace() + ' ' + machine);
}

bool isAddress(const QString& text) {
  for (const char* start : {"http://", "https://", "ftp://", "file://", "mailto:"}) {
    if (text.startsWith(start, Qt::CaseInsensitive)) {
      return true;
    }
  }
  return false;
}

}  // namespace

class KYR_HIDDEN Process::Running {
 public:
  Running(const QString& program, const QStringList& arguments)
      : _program(program), _arguments(arguments) {}

  QProcess& process() { return _process; }
  void setInput(const QByteArray& bytes) { _input = bytes; }
  void start();
  ProcessResult result();

 private:
  QProcess _process;
  QString _program;
  QStringList _arguments;
  QByteArray _input;
  QByteArray _output;
  QByteArray _errors;
  bool _wasStarted = false;
};

void Process::Running::start() {
  const QString path = OS::findExecutable(_program);
  if (path.isEmpty()) {
    Platform::fail(cannotStart, _program, "there is no such program that may be started");
  }
  if (_wasStarted) {
    Platform::fail(cannotStart, _program, "it was started already");
  }
  _process.start(path, _arguments);
  if (!_process.waitForStarted(-1)) {
    Platform::fail(cannotStart, path, "it is no program for this system, or its directory is bad");
  }
  _wasStarted = true;
  _process.write(_input);
  _process.closeWriteChannel();
}

ProcessResult Process::Running::result() {
  if (!_wasStarted || _process.state() != QProcess::NotRunning) {
    Platform::fail("there is no result of %1", _program,
                   _wasStarted ? "it still runs" : "it never ran");
  }
  _output += _process.readAllStandardOutput();
  _errors += _process.readAllStandardError();
  return {_process.exitCode(), _process.exitStatus() == QProcess::CrashExit, _output, _errors};
}

Process::Process(const QString& program, const QStringList& arguments)
    : _running(std::make_unique<Running>(program, arguments)) {}

Process::~Process() {
  if (isRunning()) {
    terminate(0);
  }
}

void Process::setDirectory(const QString& directory) {
  _running->process().setWorkingDirectory(directory);
}

void Process::setEnv(const QString& name, const QString& value) {
  QProcess& process = _running->process();
  QProcessEnvironment environment = process.processEnvironment();
  if (environment.isEmpty()) {
    const std::lock_guard<std::mutex> lock(Platform::environmentMutex());
    environment = QProcessEnvironment::systemEnvironment();
  }
  if (value.isNull()) {
    environment.remove(name);
  } else {
    environment.insert(name, value);
  }
  process.setProcessEnvironment(environment);
}

void Process::setInput(const QByteArray& bytes) {
  _running->setInput(bytes);
}

void Process::start() {
  _running->start();
}

std::int64_t Process::getPid() const {
  return _running->process().processId();
}

bool Process::isRunning() {
  return !wait(0);
}

bool Process::wait(int milliseconds) {
  QProcess& process = _running->process();
  return process.state() == QProcess::NotRunning ||
         process.waitForFinished(std::max(-1, milliseconds)) ||
         process.state() == QProcess::NotRunning;
}

void Process::terminate(int milliseconds) {
  QProcess& process = _running->process();
  if (milliseconds > 0) {
    process.terminate();
  }
  if (!wait(std::max(0, milliseconds))) {
    process.kill();
    wait();
  }
}

ProcessResult Process::getResult() const {
  return _running->result();
}

ProcessResult OS::run(const QString& program, const QStringList& arguments, int milliseconds) {
  Process process(program, arguments);
  process.start();
  if (!process.wait(milliseconds)) {
    process.terminate(0);
    Platform::fail("%1 was ended", program, QString("it ran for over %1 ms").arg(milliseconds));
  }
  return process.getResult();
}

// Qt alone would read the environment in the user's 8-bit encoding only.
QString OS::findExecutable(const QString& name) {
  if (!Platform::isName(name)) {
    return {};
  }
  const QString path = QDir::fromNativeSeparators(name);
  if (path.contains('/')) {
    const QFileInfo file(path);
    return QStandardPaths::findExecutable(file.fileName(), {file.absolutePath()});
  }
  const QStringList places = getEnv("PATH").remove('"').split(QDir::listSeparator());
  QStringList directories;
  for (const QString& place : places) {
    if (QDir::isAbsolutePath(place)) {
      directories.append(QDir::fromNativeSeparators(place));
    }
  }
  return directories.isEmpty() ? QString() : QStandardPaths::findExecutable(path, directories);
}

void OS::openOnDesktop(const QString& documentOrAddress) {
  Platform::expectName("cannot open %1", documentOrAddress);
  if (isAddress(documentOrAddress)) {
    Platform::showOnDesktop(documentOrAddress);
    return;
  }
  getStatus(documentOrAddress);
  // An absolute path cannot pass for an option.
  Platform::showOnDesktop(QFileInfo(documentOrAddress).absoluteFilePath());
}

QByteArray Platform::ownStart() {
  static std::atomic<const Told*> told{nullptr};
  return askOnce(told, [] { return processStart(OS::getPID()); });
}

QByteArray Platform::ownMachine() {
  static std::atomic<const Told*> told{nullptr};
  return askOnce(told, [] {
    const QByteArray identifier = machineIdentifier();
    return identifier.isEmpty() ? identifier : fingerprint("kyr " + identifier);
  });
}

const char* const TemporaryFile::prefix = ".kyr-save-";

QString TemporaryFile::besideOf(const QString& target) {
  static std::atomic<unsigned> count{0};
  const QString directory = target.left(QDir::fromNativeSeparators(target).lastIndexOf('/') + 1);
  const QString pid = QString::number(OS::getPID());
  const QString start = mark(Platform::ownStart());
  return directory + prefix +
         QStringList{placeMark(), pid, start, QString::number(++count)}.join('-');
}

bool TemporaryFile::isLeftover(const QString& name) {
  if (!name.startsWith(prefix)) {
    return false;
  }
  const QStringList parts = name.mid(static_cast<int>(qstrlen(prefix))).split('-');
  const QString place = placeMark();
  if (parts.size() != 4 || place.isEmpty() || parts[0] != place) {
    return false;
  }
  bool isNumber = false;
  const qint64 pid = parts[1].toLongLong(&isNumber);
  if (!isNumber || !OS::pidExists(pid)) {
    return isNumber;
  }
  const QString start = mark(Platform::processStart(pid));
  return !start.isEmpty() && !parts[2].isEmpty() && parts[2] != start;
}

}  // namespace Kyr
