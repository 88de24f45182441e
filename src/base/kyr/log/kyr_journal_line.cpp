#include <kyr/log/journal_line_p.h>

#include <QDateTime>

#include <algorithm>
#include <charconv>
#include <limits>

namespace Kyr {

namespace {

constexpr std::size_t threadWidth = 15;
constexpr std::size_t sourceWidth = 12;
/// Begins further lines of a text: no entry begins with a blank, so that no text can forge one.
constexpr std::string_view furtherLine = "\n                         | ";

/// In the width of the longest.
constexpr std::string_view levels[] = {"debug  ", "info   ", "warning", "error  "};

bool isPlain(char character) {
  const auto byte = static_cast<unsigned char>(character);
  return byte >= 0x20 && byte != 0x7F && byte != 0xC2;  // 0xC2 may begin a control character
}

void appendEscaped(std::string& line, unsigned char byte) {
  constexpr std::string_view digits = "0123456789abcdef";
  line += "\\x";
  line += digits[byte >> 4U];
  line += digits[byte & 15U];
}

/// Appends a text so that no character of it moves a terminal's cursor or begins a line.
void appendText(std::string& line, std::string_view text) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    const std::size_t begin = i;
    while (i < text.size() && isPlain(text[i])) {
      ++i;
    }
    line.append(text, begin, i - begin);
    if (i == text.size()) {
      return;
    }
    const auto byte = static_cast<unsigned char>(text[i]);
    const auto next = static_cast<unsigned char>(i + 1 < text.size() ? text[i + 1] : 0);
    if (byte == '\n') {
      line += furtherLine;
    } else if (byte == '\t' || (byte == 0xC2 && next >= 0xA0)) {
      line += text[i];
    } else if (byte != '\r' || next != '\n') {
      const bool isPair = byte == 0xC2 && next >= 0x80;
      appendEscaped(line, isPair ? next : byte);
      i += isPair ? 1 : 0;
    }
  }
}

void appendNumber(std::string& line, std::uint64_t number) {
  char digits[std::numeric_limits<std::uint64_t>::digits10 + 1];
  const char* const end = std::to_chars(digits, digits + sizeof digits, number).ptr;
  line.append(digits, static_cast<std::size_t>(end - digits));
}

/// Fills a column that began at a place, and separates it from the next.
void endColumn(std::string& line, std::size_t begin, std::size_t width) {
  const std::size_t used = line.size() - begin;
  line.append(used < width ? width - used + 1 : 1, ' ');
}

/// A source is a word: a blank would shift the columns.
void appendWord(std::string& line, std::string_view word) {
  line += word.empty() ? "-" : word;
  std::replace_if(
      line.end() - static_cast<std::ptrdiff_t>(word.size()), line.end(),
      [](char character) { return !isPlain(character) || character == ' '; }, '_');
}

std::string_view withoutFeedsAtEnd(std::string_view text) {
  while (!text.empty() && (text.back() == '\n' || text.back() == '\r')) {
    text.remove_suffix(1);
  }
  return text;
}

}  // namespace

void JournalLine::append(std::string& line, const Entry& entry) {
  appendTime(line, entry.time);
  line += ' ';
  line += levels[std::clamp<int>(entry.level, Journal::Debug, Journal::Error)];
  line += ' ';
  std::size_t begin = line.size();
  appendNumber(line, entry.process);
  line += '/';
  appendNumber(line, entry.thread);
  endColumn(line, begin, threadWidth);
  begin = line.size();
  appendWord(line, entry.source);
  endColumn(line, begin, sourceWidth);
  appendText(line, withoutFeedsAtEnd(entry.text));
  line += '\n';
}

void JournalLine::appendTime(std::string& line, std::int64_t time) {
  const std::int64_t millisecond = ((time % 1000) + 1000) % 1000;
  const std::int64_t second = (time - millisecond) / 1000;
  if (second != _second) {
    const QDateTime moment = QDateTime::fromMSecsSinceEpoch(second * 1000, Qt::UTC);
    _secondText = moment.toString(Qt::ISODate).left(19).toStdString();
    _second = second;
  }
  line += _secondText;
  line += '.';
  line += static_cast<char>('0' + millisecond / 100);
  line += static_cast<char>('0' + millisecond / 10 % 10);
  line += static_cast<char>('0' + millisecond % 10);
  line += 'Z';
}

}  // namespace Kyr
