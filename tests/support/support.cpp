#include "support/Support.h"
#include "support/support_p.h"

#include <QTemporaryDir>

#include <clocale>
#include <future>

namespace KyrTest {

TempDir::TempDir() {
  QTemporaryDir directory(QDir::tempPath() + "/kyr-test-XXXXXX");
  directory.setAutoRemove(false);
  EXPECT_TRUE(directory.isValid()) << directory.errorString().toStdString();
  _path = directory.path();
}

TempDir::~TempDir() {
  QDir(_path).removeRecursively();
}

QString TempDir::write(const QString& name, const QByteArray& bytes) const {
  return writeFile(file(name), bytes);
}

QString writeFile(const QString& path, const QByteArray& bytes) {
  QFile created(path);
  EXPECT_TRUE(created.open(QIODevice::WriteOnly)) << created.errorString().toStdString();
  EXPECT_EQ(created.write(bytes), bytes.size());
  return created.fileName();
}

QByteArray readFile(const QString& path) {
  QFile opened(path);
  EXPECT_TRUE(opened.open(QIODevice::ReadOnly)) << path.toStdString();
  return opened.readAll();
}

Bytes bytesOf(const QByteArray& array) {
  Bytes bytes;
  bytes.append(reinterpret_cast<const unsigned char*>(array.constData()),
               static_cast<std::size_t>(array.size()));
  return bytes;
}

std::string failure(const std::function<void()>& action) {
  try {
    action();
  } catch (const Kyr::Exception& error) {
    return error.what();
  }
  return {};
}

bool hangs(std::function<void()> action) {
  const auto ended = std::make_shared<std::promise<void>>();
  std::thread([ended, action = std::move(action)] {
    action();
    ended->set_value();
  }).detach();
  return ended->get_future().wait_for(std::chrono::milliseconds(200)) ==
         std::future_status::timeout;
}

void Gate::open() {
  const std::lock_guard<std::mutex> lock(_mutex);
  _open = true;
  _opened.notify_all();
}

bool Gate::await(const char* moment) {
  std::unique_lock<std::mutex> lock(_mutex);
  const bool opened = _opened.wait_for(lock, std::chrono::seconds(30), [this] { return _open; });
  EXPECT_TRUE(opened) << "never came: " << moment;
  return opened;
}

Ended runProgram(const QString& program, const QStringList& words, const QString& folder,
                 const QByteArray& input, const std::function<void(QProcess&)>& prepare) {
  QProcess process;
  process.setWorkingDirectory(folder);
  if (prepare) {
    prepare(process);
  }
  process.start(program, words);
  process.write(input);
  process.closeWriteChannel();
  EXPECT_TRUE(process.waitForFinished(60000)) << process.errorString().toStdString();
  const bool exited = process.exitStatus() == QProcess::NormalExit;
  return {exited, exited ? process.exitCode() : -1, !exited, process.readAllStandardOutput(),
          process.readAllStandardError()};
}

std::string reportProblem(const Ended& ended, const std::string& report) {
  if (!ended.faulted) {
    return "the process did not fault; exit code " + std::to_string(ended.code) +
           ", standard error: " + ended.errors.toStdString();
  }
  return ended.errors.toStdString() == report ? "" : "reported: " + ended.errors.toStdString();
}

std::string report(const std::string& message, const std::string& function, const std::string& file,
                   unsigned line) {
  return "\nInternal program error: " + message + "\nin function " + function + "\nin file " +
         file + " line " + std::to_string(line) + "\n\n";
}

ScopedLocale::ScopedLocale(const char* name)
    : _before(std::setlocale(LC_ALL, nullptr)),
      _ok(std::setlocale(LC_ALL, Platform::localeName(name)) != nullptr) {}

ScopedLocale::~ScopedLocale() {
  std::setlocale(LC_ALL, _before.c_str());
}

ScopedEnvironment::ScopedEnvironment(const char* name, const QByteArray& value)
    : _name(name), _wasSet(qEnvironmentVariableIsSet(name)), _before(qgetenv(name)) {
  qputenv(name, value);
}

ScopedEnvironment::~ScopedEnvironment() {
  if (_wasSet) {
    qputenv(_name, _before);
  } else {
    qunsetenv(_name);
  }
}

}  // namespace KyrTest
