#include <kyr/changelog/KyrChangeLog.h>
#include <kyr/changelog/change_log_html_p.h>

#include <kyr/i18n/KyrTranslate.h>
#include <kyr/text/numeric_p.h>

#include <QVector>

#include <algorithm>
#include <iterator>
#include <tuple>

namespace Kyr::ChangeLog {

static_assert(sizeof(unsigned) == 4, "the numbers of a version have 32 bits");

namespace {

constexpr int contextLevel = 2;  // of headings of contexts; the page's title has the first level

bool isDigit(char byte) {
  return byte >= '0' && byte <= '9';
}

/// Reads a number as scanf's "%u" does, except that there a number beyond 32 bits is undefined.
/// \param at moved behind the number
/// \return false when there is no number or it is too large
bool readNumber(const char*& at, unsigned* value) {
  while (Numeric::isSpace(static_cast<unsigned char>(*at))) {
    ++at;
  }
  const bool isNegative = *at == '-';
  if (isNegative || *at == '+') {
    ++at;
  }
  const char* const first = at;
  quint64 sum = 0;
  for (; isDigit(*at) && sum <= 0xFFFFFFFFU; ++at) {
    sum = sum * 10 + static_cast<unsigned>(*at - '0');
  }
  const auto number = static_cast<unsigned>(sum);
  *value = isNegative ? 0U - number : number;
  return at != first && number == sum;
}

/// Whether HTML may hold a character: no controls, no code points that never become characters.
bool isText(uint code) {
  const bool isControl =
      (code < 0x20 && code != '\t' && code != '\n') || (code >= 0x7F && code <= 0x9F);
  return !isControl && !QChar::isNonCharacter(code);
}

QString token(const QString& element) {
  return "<code class=\"token\">" + htmlOf(element) + "</code>";
}

/// The entry as a sentence. All texts are put in at once, so that no name of an element is taken
/// for a place of another text.
QString sentence(const LogEntry& entry) {
  const QString element = token(entry.getElement());
  switch (entry.getType()) {
    case LogEntry::Created:
      return translate("KyrChangeLog", "new %1.").arg(element);
    case LogEntry::Renamed:
      return translate("KyrChangeLog", "%1 renamed to %2.")
          .arg(element, token(entry.getRelatedElement()));
    case LogEntry::Removed:
      return translate("KyrChangeLog", "removed %1.").arg(element);
    case LogEntry::SemanticsChanged:
      return translate("KyrChangeLog", "changed semantics of %1.").arg(element);
  }
  return {};
}

using Entries = std::vector<const LogEntry*>;
using Place = Entries::const_iterator;

bool isNewer(const LogEntry* left, const LogEntry* right) {
  return right->getVersion() < left->getVersion();
}

bool isOfEarlierContext(const LogEntry* left, const LogEntry* right) {
  return left->getContext() < right->getContext();
}

/// The end of the entries that go together with the first one, of entries in order.
template <class Less>
Place endOfGroup(Place begin, Place end, Less less) {
  return std::find_if(begin, end, [&](const LogEntry* entry) { return less(*begin, entry); });
}

QString heading(int level, const QString& text) {
  const QString number = QString::number(level);
  return QString("<h%1 class=\"history\">%2</h%3>\n").arg(number, htmlOf(text), number);
}

QString list(Place begin, Place end) {
  QString html = "<ul>\n";
  for (; begin != end; ++begin) {
    html += QString("<li><span class=\"version\">%1:</span> %2</li>\n")
                .arg((*begin)->getVersion().toString(), (*begin)->getHtmlText());
  }
  return html += "</ul>\n";
}

QString contexts(int level, Place begin, Place end) {
  QString html;
  while (begin != end) {
    const Place next = endOfGroup(begin, end, isOfEarlierContext);
    const QString& context = (*begin)->getContext();
    html += context.isEmpty() ? QString() : heading(level, context);
    html += list(begin, next);
    begin = next;
  }
  return html;
}

QString versions(Place begin, Place end) {
  QString html;
  while (begin != end) {
    const Place next = endOfGroup(begin, end, isNewer);
    html += heading(contextLevel, (*begin)->getVersion().toString());
    html += contexts(contextLevel + 1, begin, next);
    begin = next;
  }
  return html;
}

}  // namespace

QString htmlOf(const QString& text) {
  QVector<uint> codes = QString(text).replace("\r\n", "\n").replace('\r', '\n').toUcs4();
  std::replace_if(
      codes.begin(), codes.end(), [](uint code) { return !isText(code); },
      uint(QChar::ReplacementCharacter));
  return QString::fromUcs4(codes.constData(), codes.size())
      .toHtmlEscaped()
      .replace('\'', "&#39;")
      .replace('\n', "<br/>");
}

VersionNumber::VersionNumber(unsigned itsMajor, unsigned itsMinor, unsigned itsPatch,
                             unsigned itsBuild)
    : _major(itsMajor), _minor(itsMinor), _patch(itsPatch), _build(itsBuild) {}

VersionNumber VersionNumber::invalidVersion() {
  return {0, 0, 0, 0};
}

VersionNumber VersionNumber::version(const Version_t& release, unsigned build) {
  switch (release) {
    case Version610:
      return {6, 1, 0, build};
    case Version611:
      return {6, 1, 1, build};
    case Version620:
      return {6, 2, 0, build};
    case Version700:
      return {7, 0, 0, build};
  }
  return invalidVersion();
}

VersionNumber VersionNumber::version610(unsigned build) {
  return version(Version610, build);
}

VersionNumber VersionNumber::version620(unsigned build) {
  return version(Version620, build);
}

VersionNumber VersionNumber::fromParts(unsigned itsMajor, unsigned itsMinor, unsigned itsPatch,
                                       unsigned itsBuild) {
  return {itsMajor, itsMinor, itsPatch, itsBuild};
}

VersionNumber VersionNumber::fromString(const char* text) {
  constexpr char before[] = {'v', '.', '.', '-'};
  unsigned numbers[std::size(before)] = {};
  for (std::size_t i = 0; i < std::size(before); ++i) {
    if (!text || *text != before[i] || !readNumber(++text, &numbers[i])) {
      return invalidVersion();
    }
  }
  return {numbers[0], numbers[1], numbers[2], numbers[3]};
}

QString VersionNumber::toString() const {
  return QString("v%1.%2.%3-%4").arg(_major).arg(_minor).arg(_patch).arg(_build);
}

bool VersionNumber::operator<(const VersionNumber& other) const {
  return std::tie(_major, _minor, _patch, _build) <
         std::tie(other._major, other._minor, other._patch, other._build);
}

bool VersionNumber::operator==(const VersionNumber& other) const {
  return std::tie(_major, _minor, _patch, _build) ==
         std::tie(other._major, other._minor, other._patch, other._build);
}

LogEntry::LogEntry(const QString& context, const VersionNumber& version, Type_t type,
                   const QString& element, const QString& relatedElement,
                   const QString& description)
    : _context(context),
      _version(version),
      _element(element),
      _relatedElement(relatedElement),
      _description(description),
      _type(type) {}

LogEntry LogEntry::elementCreated(const QString& context, const VersionNumber& version,
                                  const QString& element, const QString& description) {
  return {context, version, Created, element, QString(), description};
}

LogEntry LogEntry::elementRenamed(const QString& context, const VersionNumber& version,
                                  const QString& element, const QString& newName,
                                  const QString& description) {
  return {context, version, Renamed, element, newName, description};
}

LogEntry LogEntry::elementRemoved(const QString& context, const VersionNumber& version,
                                  const QString& element, const QString& description) {
  return {context, version, Removed, element, QString(), description};
}

LogEntry LogEntry::elementSemantics(const QString& context, const VersionNumber& version,
                                    const QString& element, const QString& description) {
  return {context, version, SemanticsChanged, element, QString(), description};
}

QString LogEntry::getHtmlText() const {
  const QString said = sentence(*this);
  const QString rest = htmlOf(_description);
  return said.isEmpty() || rest.isEmpty() ? said + rest : said + ' ' + rest;
}

Log& Log::addEntry(const LogEntry& entry) {
  _entries.push_back(entry);
  return *this;
}

Log& Log::addLog(const Log& other) {
  std::vector<LogEntry> added = other._entries;
  _entries.insert(_entries.end(), std::make_move_iterator(added.begin()),
                  std::make_move_iterator(added.end()));
  return *this;
}

QString Log::transformToHtml(Grouping_t grouping) const {
  Entries entries(_entries.size());
  std::transform(begin(), end(), entries.begin(), [](const LogEntry& entry) { return &entry; });
  if (grouping != ByContext && grouping != ByVersion) {
    return list(entries.begin(), entries.end());
  }
  const bool byContext = grouping == ByContext;
  std::stable_sort(entries.begin(), entries.end(), byContext ? isNewer : isOfEarlierContext);
  std::stable_sort(entries.begin(), entries.end(), byContext ? isOfEarlierContext : isNewer);
  return byContext ? contexts(contextLevel, entries.begin(), entries.end())
                   : versions(entries.begin(), entries.end());
}

}  // namespace Kyr::ChangeLog
