#include <kyr/log/KyrErrorLog.h>

#include <algorithm>
#include <new>

namespace Kyr {

namespace {

constexpr int largestLimit = 1 << 29;  // and a quarter more, which is less than a string holds

QString noteOf(std::uint64_t lines, bool reversed) {
  QString note = QString("[lines left out: %1]").arg(lines);
  if (reversed) {
    std::reverse(note.begin(), note.end());
  }
  return note + '\n';
}

/// How many lines a text has; the last one counts also without a line feed.
std::uint64_t countLines(QStringView text) {
  const auto feeds = std::uint64_t(std::count(text.begin(), text.end(), QLatin1Char('\n')));
  return text.isEmpty() || text.back() == '\n' ? feeds : feeds + 1;
}

}  // namespace

LogText::LogText() = default;
LogText::LogText(const LogText& other) = default;
LogText& LogText::operator=(const LogText& other) = default;
LogText::~LogText() = default;

void LogText::clear() {
  _text.clear();
  _fallen[0] = _fallen[1] = Fallen();
}

void LogText::setLimit(int characters) {
  _limit = qBound(0, characters, largestLimit);
}

void LogText::add(const QString& message, bool atEnd) {
  enter(message, !atEnd && !isEmpty(), true);
}

void LogText::append(const QString& piece) {
  enter(piece, false, false);
}

const QString& LogText::text() const {
  turn(false);
  return _text;
}

// A text that is too long loses a large part at once, because the rest is moved for that.
void LogText::enter(const QString& message, bool reversed, bool withFeed) noexcept {
  const std::int64_t most = std::int64_t(_limit) + _limit / 4;
  const bool fits = message.size() <= _limit;
  if (fits && (keep(message, reversed, withFeed, most) ||
               keep(message, reversed, withFeed, _text.size() / 2))) {
    return;
  }
  _fallen[_reversed].lines += countLines(message);
  keep(QString(), _reversed, false, most);
}

/// Adds a message where the text grows, in its order, and shortens it if it gets too long.
/// \return false without memory
bool LogText::keep(const QString& message, bool reversed, bool withFeed,
                   std::int64_t most) noexcept {
  try {
    turn(reversed);
    const std::int64_t size = std::int64_t(message.size()) + 1;
    const Fallen& fallen = _fallen[_reversed];
    if (_text.size() - fallen.noteSize + size > most) {
      shorten(std::min<std::int64_t>(most, _limit) - size);
    } else if (fallen.lines != fallen.noted) {
      shorten(_text.size());
    }
    put(message, withFeed);
    return true;
  } catch (const std::bad_alloc&) {
    return false;
  }
}

void LogText::put(const QString& message, bool withFeed) {
  if (isEmpty()) {
    _text = message;
    return;
  }
  const auto before = _text.size();
  const auto count = message.size();
  const int feed = withFeed && before > _fallen[_reversed].noteSize ? 1 : 0;
  _text.resize(before + feed + count);
  QChar* end = _text.data() + before;
  std::fill_n(end, feed, '\n');
  end += feed;
  if (_reversed) {
    std::reverse_copy(message.constData(), message.constData() + count, end);
  } else {
    std::copy_n(message.constData(), count, end);
  }
}

/// Lets the lines in front fall out that have no room in so many characters, and notes them.
void LogText::shorten(std::int64_t most) {
  Fallen& fallen = _fallen[_reversed];
  const std::int64_t start = fallen.noteSize;
  const auto size = std::int64_t(_text.size());
  auto from = QString::size_type(qBound(start, size - most, size));
  if (from > start && from < _text.size() && _text.at(from - 1) != '\n') {
    const auto feed = _text.indexOf('\n', from);
    from = feed < 0 ? _text.size() : feed + 1;
  }
  const std::uint64_t lines =
      fallen.lines + countLines(QStringView(_text).mid(fallen.noteSize, from - fallen.noteSize));
  if (lines == fallen.noted) {
    return;
  }
  const QString note = noteOf(lines, _reversed);
  if (_text.isDetached()) {
    _text.replace(0, from, note);
  } else {
    // A copy, as somebody holds the whole text.
    _text = QString(note).append(_text.constData() + from, _text.size() - from);
  }
  fallen = {lines, lines, static_cast<int>(note.size())};
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
