#include <kyr/core/calendar_p.h>
#include <kyr/crash/crash_about_p.h>
#include <kyr/crash/crash_handler_p.h>

#include <atomic>

namespace Kyr {

namespace {

std::array<char, 3001> programLines{};
std::array<char, 1024> homeFolder{};
bool namesIgnoreCase = false;

using Sentence = std::array<char, 1501>;
Sentence beforeDump{};
Sentence behindDump{};
Sentence withoutDump{};
std::atomic<bool> hasNotice{false};
std::intptr_t placeOfNotice = 0;

/// Copies a text with its end, cut to the room that there is.
template <std::size_t Size>
void keep(std::array<char, Size>& room, const char* text) noexcept {
  const std::size_t length = std::min(std::strlen(text), Size - 1);
  std::memcpy(room.data(), text, length);
  room[length] = '\0';
}

/// ASCII only: without a locale nobody knows more.
char folded(char letter) noexcept {
  const bool isCapital = namesIgnoreCase && letter >= 'A' && letter <= 'Z';
  return isCapital ? static_cast<char>(letter - 'A' + 'a') : letter;
}

/// Appends a number with a zero in front of a single digit.
void appendTwoDigits(Crash::Text& text, std::int64_t number) noexcept {
  text << (number < 10 ? "0" : "");
  text.decimal(number);
}

}  // namespace

void Crash::describeProgram(const char* lines, const char* home, bool ignoresCase) noexcept {
  namesIgnoreCase = ignoresCase;
  keep(programLines, lines);
  const bool isFolder = std::strlen(home) > 1 && std::strlen(home) < homeFolder.size();
  keep(homeFolder, isFolder ? home : "");
}

void Crash::setNotice(const Notice& notice) noexcept {
  keep(beforeDump, notice.beforeDump);
  keep(behindDump, notice.behindDump);
  keep(withoutDump, notice.withoutDump);
}

void Crash::setPlaceOfNotice(std::intptr_t place) noexcept {
  placeOfNotice = place;
  hasNotice = true;
}

Crash::Text Crash::takeNotice(const char* dump, std::intptr_t& place) noexcept {
  Text text;
  // Until the library has started there are no words.
  if (!hasNotice.exchange(false) || withoutDump[0] == '\0') {
    return text;
  }
  place = placeOfNotice;
  if (*dump == '\0') {
    return text << withoutDump.data();
  }
  text << beforeDump.data();
  appendVisible(text, dump, std::strlen(dump));
  return text << behindDump.data();
}

const char* Crash::preparedLines() noexcept {
  return programLines.data();
}

void Crash::appendVisible(Text& text, const char* bytes, std::size_t length) noexcept {
  for (std::size_t i = 0; i < length; ++i) {
    const auto byte = static_cast<unsigned char>(bytes[i]);
    text.append(byte < ' ' || byte == 0x7f ? "?" : bytes + i, 1);
  }
}

void Crash::appendPath(Text& text, const char* path, std::size_t length) noexcept {
  const std::size_t home = std::strlen(homeFolder.data());
  const bool isBelow = home > 0 && length > home && path[home] == '/' &&
                       std::equal(path, path + home, homeFolder.data(), [](char left, char right) {
                         return folded(left) == folded(right);
                       });
  text << (isBelow ? "~" : "");
  const std::size_t skipped = isBelow ? home : 0;
  appendVisible(text, path + skipped, length - skipped);
}

void Crash::appendMoment(Text& text, std::int64_t seconds) noexcept {
  constexpr std::int64_t secondsOfDay = 86400;
  const Calendar::Date day = Calendar::dateOf(seconds / secondsOfDay);
  const std::int64_t rest = seconds % secondsOfDay;
  text.decimal(day.year) << "-";
  appendTwoDigits(text, day.month);
  text << "-";
  appendTwoDigits(text, day.day);
  text << "T";
  appendTwoDigits(text, rest / 3600);
  text << ":";
  appendTwoDigits(text, rest / 60 % 60);
  text << ":";
  appendTwoDigits(text, rest % 60);
  text << "Z";
}

void Crash::appendBytes(Text& text, const unsigned char* bytes, std::size_t count) noexcept {
  const char* const digits = "0123456789abcdef";
  for (std::size_t i = 0; i < count; ++i) {
    text.append(digits + bytes[i] / 16, 1);
    text.append(digits + bytes[i] % 16, 1);
  }
}

Crash::Text Crash::threadLine(std::uint64_t number, const char* name, const char* function,
                              const char* file, unsigned line) noexcept {
  Text text;
  if (*name == '\0' && *function == '\0') {
    return text;
  }
  text << "thread ";
  text.hexadecimal(number);
  if (*name != '\0') {
    text << " named \"";
    appendVisible(text, name, std::strlen(name));
    text << "\"";
  }
  if (*function != '\0') {
    text << (*name != '\0' ? ", made at " : " made at ");
    appendVisible(text, function, std::strlen(function));
    text << " (";
    appendVisible(text, file, std::strlen(file));
    text << ":";
    text.count(line) << ")";
  }
  return text << "\n";
}

}  // namespace Kyr
