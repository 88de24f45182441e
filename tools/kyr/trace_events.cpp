#include "trace_events.h"

#include "arguments.h"

#include <kyr/i18n/KyrTranslate.h>

#include <QJsonDocument>

#include <cstring>

namespace KyrTool {

namespace {

constexpr std::size_t pieceSize = 65536;
constexpr int longestEvent = 1 << 20;

}  // namespace

void TraceEvents::fail(const QString& reason) const {
  throw FileError{Kyr::translate("Kyr_tool", "%1: byte %2: %3")
                      .arg(_input.name(), QString::number(_begin), reason)};
}

int TraceEvents::take() {
  if (_taken == _piece.size()) {
    _input.read(_piece, pieceSize);
    _taken = 0;
  }
  if (_piece.size() == 0) {
    return nothing;
  }
  ++_read;
  return _piece[_taken++];
}

int TraceEvents::takeBehindBlanks() {
  int byte = take();
  while (byte > 0 && std::strchr(" \t\r\n", byte)) {
    byte = take();
  }
  _begin = byte == nothing ? _read : _read - 1;
  return byte;
}

/// Collects an object whose first brace is taken.
/// \return false when the file ends inside of it
bool TraceEvents::collect() {
  int depth = 1;
  bool isInText = false;
  _event = "{";
  while (depth > 0) {
    const int byte = take();
    if (byte == nothing) {
      return false;
    }
    if (_event.size() >= longestEvent) {  // it grows by two behind a backslash
      fail(Kyr::translate("Kyr_tool", "an event is longer than a MiB"));
    }
    _event += static_cast<char>(byte);
    if (isInText && byte == '\\') {
      const int escaped = take();
      _event += static_cast<char>(escaped);
    } else if (byte == '"') {
      isInText = !isInText;
    } else if (!isInText && (byte == '{' || byte == '}')) {
      depth += byte == '{' ? 1 : -1;
    }
  }
  return true;
}

bool TraceEvents::next(QJsonObject& event) {
  if (!_hasBegun && takeBehindBlanks() != '[') {
    fail(Kyr::translate("Kyr_tool", "this is no trace, which begins with \"[\""));
  }
  int byte = takeBehindBlanks();
  if (_hasBegun && byte == ',') {
    byte = takeBehindBlanks();
  }
  _hasBegun = true;
  _isWhole = byte == ']';
  if (byte == nothing || _isWhole) {
    return false;
  }
  if (byte != '{') {
    fail(Kyr::translate("Kyr_tool", "an event begins with \"{\""));
  }
  if (!collect()) {
    return false;
  }
  QJsonParseError error{};
  event = QJsonDocument::fromJson(_event, &error).object();
  if (error.error != QJsonParseError::NoError) {
    fail(error.errorString());
  }
  return true;
}

}  // namespace KyrTool
