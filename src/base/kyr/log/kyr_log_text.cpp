#include <kyr/log/KyrErrorLog.h>

#include <algorithm>

namespace Kyr {

LogText::LogText() = default;
LogText::LogText(const LogText& other) = default;
LogText& LogText::operator=(const LogText& other) = default;
LogText::~LogText() = default;

void LogText::clear() {
  _text.clear();
}

void LogText::add(const QString& message, bool atEnd) {
  if (isEmpty()) {
    _text = message;
    _reversed = false;
    return;
  }
  turn(!atEnd);
  _text += '\n';
  _text += message;
  if (_reversed) {
    std::reverse(_text.end() - message.size(), _text.end());
  }
}

void LogText::append(const QString& piece) {
  turn(false);
  _text += piece;
}

const QString& LogText::text() const {
  turn(false);
  return _text;
}

// A string grows cheaply at its end only. Newest first is therefore the reverse of a text that
// grows at its end, turned round when somebody asks for it.
void LogText::turn(bool reversed) const {
  if (_reversed != reversed) {
    std::reverse(_text.begin(), _text.end());
    _reversed = reversed;
  }
}

}  // namespace Kyr
