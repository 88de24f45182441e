#include "Fuzz.h"

#include <kyr/changelog/KyrChangeLog.h>

#include <QXmlStreamReader>

#include <tuple>

namespace KyrFuzz {

namespace {

using Kyr::ChangeLog::Log;
using Kyr::ChangeLog::LogEntry;
using Kyr::ChangeLog::VersionNumber;

struct Entry : LogEntry {
  Entry(unsigned type, const VersionNumber& version, const QString& context, const QString& element,
        const QString& related, const QString& description)
      : LogEntry(context, version, static_cast<Type_t>(type), element, related, description) {}
};

/// One number as scanf takes it.
/// \return whether there is one of 32 bits
bool takeNumber(const char*& text, unsigned& number) {
  while (std::strchr(" \t\n\v\f\r", *text) != nullptr && *text != '\0') {
    ++text;
  }
  const bool isNegative = *text == '-';
  text += *text == '-' || *text == '+' ? 1 : 0;
  const char* const first = text;
  std::uint64_t value = 0;
  for (; *text >= '0' && *text <= '9'; ++text) {
    value = std::min<std::uint64_t>(value * 10 + static_cast<unsigned>(*text - '0'), 1ULL << 32U);
  }
  number = isNegative ? 0U - static_cast<unsigned>(value) : static_cast<unsigned>(value);
  return text != first && value < 1ULL << 32U;
}

VersionNumber literally(const char* text) {
  unsigned parts[4] = {};
  const char* const between = "v..-";
  for (int i = 0; i < 4; ++i) {
    if (*text != between[i] || !takeNumber(++text, parts[i])) {
      return VersionNumber::invalidVersion();
    }
  }
  return VersionNumber::fromParts(parts[0], parts[1], parts[2], parts[3]);
}

std::tuple<unsigned, unsigned, unsigned, unsigned> partsOf(const VersionNumber& version) {
  return {version.getMajor(), version.getMinor(), version.getPatch(), version.getBuild()};
}

VersionNumber checkVersion(const std::string& text) {
  const VersionNumber version = VersionNumber::fromString(text.c_str());
  expect(version == literally(text.c_str()), "a version reads as documented");
  const QByteArray written = version.toString().toLatin1();
  expect(VersionNumber::fromString(written.constData()) == version, "a version leads back");
  return version;
}

void checkWellFormed(const QString& page) {
  QXmlStreamReader xml(page.toUtf8());
  while (!xml.atEnd()) {
    xml.readNext();
    expect(!xml.isStartElement() || xml.name() != QLatin1String("planted"),
           "no text makes an element");
  }
  expect(!xml.hasError(), "a page is well-formed");
}

}  // namespace

void harness(Choices input) {
  const auto grouping = static_cast<Log::Grouping_t>(input.upTo(3));
  const bool hasHalves = input.yes();
  const auto text = [&input, hasHalves] {
    const std::string_view line = input.line();
    return hasHalves ? halvesOf(line) : textOf(line);
  };
  const QString title = text();
  Log log;
  VersionNumber before = VersionNumber::invalidVersion();
  while (!input.atEnd()) {
    const VersionNumber version = checkVersion(std::string(input.line()));
    expect((version < before) == (partsOf(version) < partsOf(before)) &&
               (version == before) == (partsOf(version) == partsOf(before)),
           "versions compare part by part");
    before = version;
    const unsigned type = input.upTo(5);
    const QString context = text();
    const QString element = text();
    const QString related = text();
    log.addEntry(Entry(type, version, context, element, related, text()));
    checkWellFormed("<p>" + (log.end() - 1)->getHtmlText() + "</p>");
  }
  checkWellFormed("<div>" + log.transformToHtml(grouping) + "</div>");
  checkWellFormed(log.transformToPage(title, grouping));
}

}  // namespace KyrFuzz
