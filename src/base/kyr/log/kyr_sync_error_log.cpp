#include <kyr/log/KyrSyncErrorLog.h>
#include <kyr/log/log_output_p.h>

#include <kyr/os/os_file_p.h>
#include <kyr/os/os_reason_p.h>
#include <kyr/sync/site_lock_p.h>

namespace Kyr {

/// Support matches reports by these numbers; they do not follow edits of this file.
namespace site {
constexpr unsigned Clear = 31, GetLog = 42, IsLog = 51, AddUInt64 = 60, AddInt64 = 69,
                   AddDouble = 78, AddChar = 92, AddString = 101, AddPointer = 110, SetLimit = 119;
constexpr const char* File = "kyr_sync_error_log";
}  // namespace site

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
  const SiteLock locked(_mutex, "Kyr::SyncErrorLog::clear", site::File, site::Clear);
  _message.clear();
  _log.clear();
}

QString SyncErrorLog::getLog() const {
  const SiteLock locked(_mutex, "Kyr::SyncErrorLog::getLog", site::File, site::GetLog);
  return _log.text();
}

bool SyncErrorLog::isLog() const {
  const SiteLock locked(_mutex, "Kyr::SyncErrorLog::isLog", site::File, site::IsLog);
  return !_log.isEmpty();
}

void SyncErrorLog::setLimit(int characters) {
  const SiteLock locked(_mutex, "Kyr::SyncErrorLog::setLimit", site::File, site::SetLimit);
  _log.setLimit(characters);
}

void SyncErrorLog::appendLine() {
  _log.add(_message, _append);
  _message.clear();
}

SyncErrorLog& SyncErrorLog::addUInt64(unsigned long long value) {
  const SiteLock locked(_mutex, "Kyr::SyncErrorLog::addUInt64", site::File, site::AddUInt64);
  _message += QString::number(value);
  return *this;
}

SyncErrorLog& SyncErrorLog::addInt64(long long value) {
  const SiteLock locked(_mutex, "Kyr::SyncErrorLog::addInt64", site::File, site::AddInt64);
  _message += QString::number(value);
  return *this;
}

SyncErrorLog& SyncErrorLog::addDouble(double value) {
  const SiteLock locked(_mutex, "Kyr::SyncErrorLog::addDouble", site::File, site::AddDouble);
  _message += QString::number(value, 'g', 6);
  return *this;
}

SyncErrorLog& SyncErrorLog::addChar(char value) {
  const SiteLock locked(_mutex, "Kyr::SyncErrorLog::addChar", site::File, site::AddChar);
  if (value == END_LOG) {
    appendLine();
  } else {
    _message += QChar::fromLatin1(value);
  }
  return *this;
}

SyncErrorLog& SyncErrorLog::addString(const QString& text) {
  const SiteLock locked(_mutex, "Kyr::SyncErrorLog::addString", site::File, site::AddString);
  _message.append(text.constData(), text.size());  // as ErrorLog does
  return *this;
}

SyncErrorLog& SyncErrorLog::addPointer(const void* address) {
  const SiteLock locked(_mutex, "Kyr::SyncErrorLog::addPointer", site::File, site::AddPointer);
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
