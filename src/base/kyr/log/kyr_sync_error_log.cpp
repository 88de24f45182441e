#include <kyr/log/KyrSyncErrorLog.h>
#include <kyr/log/log_output_p.h>

#include <kyr/os/os_file_p.h>
#include <kyr/os/os_reason_p.h>

namespace Kyr {

namespace {

void appendToFile(const QString& fileName, const QString& message) {
  const QByteArray bytes = message.toLocal8Bit();
  if (Platform::isName(fileName)) {
    Platform::appendToFile(fileName, bytes.constData(), static_cast<std::size_t>(bytes.size()));
  }
}

}  // namespace

SyncErrorLog::SyncErrorLog(bool append) : _append(append) {}
SyncErrorLog::~SyncErrorLog() = default;

void SyncErrorLog::clear() {
  const AutoMutex locked(&_mutex);
  _message.clear();
  _log.clear();
}

QString SyncErrorLog::getLog() const {
  const AutoMutex locked(&_mutex);
  return _log.text();
}

bool SyncErrorLog::isLog() const {
  const AutoMutex locked(&_mutex);
  return !_log.isEmpty();
}

void SyncErrorLog::setLimit(int characters) {
  const AutoMutex locked(&_mutex);
  _log.setLimit(characters);
}

void SyncErrorLog::setFeed(const LogFeed& feed) {
  const AutoMutex locked(&_mutex);
  _feed = feed;
}

void SyncErrorLog::appendLine() {
  _log.add(_message, _append);
  _message.clear();
}

SyncErrorLog& SyncErrorLog::addUInt64(unsigned long long value) {
  const AutoMutex locked(&_mutex);
  _message += QString::number(value);
  return *this;
}

SyncErrorLog& SyncErrorLog::addInt64(long long value) {
  const AutoMutex locked(&_mutex);
  _message += QString::number(value);
  return *this;
}

SyncErrorLog& SyncErrorLog::addDouble(double value) {
  const AutoMutex locked(&_mutex);
  _message += QString::number(value, 'g', 6);
  return *this;
}

SyncErrorLog& SyncErrorLog::addChar(char value) {
  const AutoMutex locked(&_mutex);
  if (value == END_LOG) {
    LogOutput::note(_message, _feed);
    _feed.give(_message);
    appendLine();
  } else {
    _message += QChar::fromLatin1(value);
  }
  return *this;
}

SyncErrorLog& SyncErrorLog::addString(const QString& text) {
  const AutoMutex locked(&_mutex);
  _message.append(text.constData(), text.size());  // += would share the caller's buffer
  return *this;
}

SyncErrorLog& SyncErrorLog::addPointer(const void* address) {
  const AutoMutex locked(&_mutex);
  _message += LogOutput::addressText(address);
  return *this;
}

SyncOutputErrorLog::SyncOutputErrorLog(bool outputMessage)
    : SyncErrorLog(true), _outputMessage(outputMessage) {}
SyncOutputErrorLog::~SyncOutputErrorLog() = default;

void SyncOutputErrorLog::appendLine() {
  if (_outputMessage) {
    LogOutput::echo(message());
  }
  message().clear();
}

SyncSystemErrorLog::SyncSystemErrorLog(bool flag, const QString& fileName)
    : SyncErrorLog(true), _flag(flag), _fileName(fileName) {}
SyncSystemErrorLog::~SyncSystemErrorLog() = default;

void SyncSystemErrorLog::appendLine() {
  message() += '\n';
  LogOutput::echo(message());
  logText().append(message());
  if (!_fileName.isEmpty()) {
    appendToFile(_fileName, message());
  }
  message().clear();
}

}  // namespace Kyr
