#include <kyr/log/KyrErrorLog.h>
#include <kyr/log/log_output_p.h>
#include <kyr/recorder/KyrFlightRecorder.h>

#include <iostream>

namespace Kyr {

QString LogOutput::addressText(const void* address) {
  const QString digits = QString::number(reinterpret_cast<quintptr>(address), 16);
  return QString("0x%1").arg(digits, 8, QChar('0'));
}

void LogOutput::echo(const QString& message) {
  const QByteArray line = message.toLocal8Bit() + '\n';
  std::cerr.write(line.constData(), line.size()).flush();
}

void LogOutput::note(const QString& message, const LogFeed& feed) noexcept {
  FlightRecorder::note(feed.source ? feed.source : "log", message);
}

ErrorLog::ErrorLog(bool append) : _append(append) {}
ErrorLog::ErrorLog(const ErrorLog& other) = default;
ErrorLog& ErrorLog::operator=(const ErrorLog& other) = default;
ErrorLog::~ErrorLog() = default;

void ErrorLog::clear() {
  _message.clear();
  _log.clear();
}

void ErrorLog::appendLine() {
  _log.add(_message, _append);
  _message.clear();
}

ErrorLog& ErrorLog::addUInt64(unsigned long long value) {
  _message += QString::number(value);
  return *this;
}

ErrorLog& ErrorLog::addInt64(long long value) {
  _message += QString::number(value);
  return *this;
}

ErrorLog& ErrorLog::addDouble(double value) {
  _message += QString::number(value, 'g', 6);
  return *this;
}

ErrorLog& ErrorLog::addChar(char value) {
  if (value == END_LOG) {
    LogOutput::note(_message, _feed);
    _feed.give(_message);
    appendLine();
  } else {
    _message += QChar::fromLatin1(value);
  }
  return *this;
}

ErrorLog& ErrorLog::addString(const QString& text) {
  _message.append(text.constData(), text.size());  // += would share the caller's buffer
  return *this;
}

ErrorLog& ErrorLog::addPointer(const void* address) {
  _message += LogOutput::addressText(address);
  return *this;
}

OutputErrorLog::OutputErrorLog(bool outputMessage)
    : ErrorLog(true), _outputMessage(outputMessage) {}
OutputErrorLog::OutputErrorLog(const OutputErrorLog& other) = default;
OutputErrorLog& OutputErrorLog::operator=(const OutputErrorLog& other) = default;
OutputErrorLog::~OutputErrorLog() = default;

void OutputErrorLog::appendLine() {
  if (_outputMessage) {
    LogOutput::echo(message());
  }
  message().clear();
}

}  // namespace Kyr
