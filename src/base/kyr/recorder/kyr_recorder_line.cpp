#include <kyr/recorder/recorder_p.h>

#include <kyr/core/calendar_p.h>
#include <kyr/text/utf8_p.h>

#include <algorithm>
#include <cstring>

namespace Kyr::Recorder {

namespace {

bool isControl(char32_t character) noexcept {
  return character < 0x20 || (character >= 0x7F && character < 0xA0) || character == 0x2028 ||
         character == 0x2029;
}

}  // namespace

void LineMaker::add(std::string_view text) noexcept {
  const std::size_t taken = std::min(text.size(), _line.size() - _length);
  std::memcpy(_line.data() + _length, text.data(), taken);
  _length += taken;
}

void LineMaker::addPlain(std::string_view text) noexcept {
  const char* next = text.data();
  const char* const end = next + text.size();
  while (next != end) {
    const char* const begin = next;
    const char32_t character = Utf8::take(next, end);
    if (character == Utf8::none) {
      add("?");
    } else if (isControl(character)) {
      add(" ");
    } else {
      add({begin, static_cast<std::size_t>(next - begin)});
    }
  }
}

void LineMaker::addNumber(std::uint64_t number, unsigned base, int digits) noexcept {
  std::array<char, 24> reversed{};
  std::size_t first = reversed.size();
  for (; digits > 0 || number > 0; --digits) {
    reversed[--first] = "0123456789abcdef"[number % base];
    number /= base;
  }
  add({reversed.data() + first, reversed.size() - first});
}

void LineMaker::addTime(std::int64_t microseconds) noexcept {
  constexpr std::int64_t day = std::int64_t{86400} * 1'000'000;
  const Calendar::Date date = Calendar::dateOf(microseconds / day);
  const auto rest = static_cast<std::uint64_t>(microseconds % day);
  const auto part = [this, rest](const char* before, std::uint64_t unit, std::uint64_t most,
                                 int digits) {
    add(before);
    addNumber(rest / unit % most, 10, digits);
  };
  addNumber(static_cast<std::uint64_t>(date.year), 10, 4);
  add("-");
  addNumber(static_cast<std::uint64_t>(date.month), 10, 2);
  add("-");
  addNumber(static_cast<std::uint64_t>(date.day), 10, 2);
  part("T", 3'600'000'000, 24, 2);
  part(":", 60'000'000, 60, 2);
  part(":", 1'000'000, 60, 2);
  part(".", 1, 1'000'000, 6);
  add("Z");
}

std::string_view LineMaker::line(const Entry& entry) noexcept {
  _length = 0;
  addTime(std::max<std::int64_t>(entry.time + _sinceEpoch, 0) / 1000);
  add(" 0x");
  addNumber(entry.thread, 16, 1);
  add(" ");
  addPlain(entry.source());
  add(entry.source().empty() ? "" : ": ");
  addPlain(_blanker.blank(entry.text(), entry.isCut));
  add(entry.isCut ? "..." : "");
  return {_line.data(), _length};
}

std::string_view LineMaker::lineWithFeed(const Entry& entry) noexcept {
  line(entry);
  add("\n");
  return {_line.data(), _length};
}

}  // namespace Kyr::Recorder
