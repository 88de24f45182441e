#include <kyr/core/file_parse_error_p.h>

#include <QtGlobal>

#include <algorithm>

namespace Kyr::FileParse {

namespace {

template <class Base>
class WithPlace final : public Base, public Placed {
 public:
  WithPlace(const QString& text, Finding finding) : Base(text), Placed(std::move(finding)) {}
};

template <class Base>
[[noreturn]] void raiseAs(Finding finding, const QString& text) {
  const QString message = finding.place.fileName.isEmpty() ? text : sentence(finding);
  throw WithPlace<Base>(message, std::move(finding));
}

/// Not by QString::arg(), which takes "%2" within the token for a place, too.
QString filled(const QString& pattern, const Finding& finding) {
  const QString values[] = {shown(finding.place.token), shown(finding.place.key), finding.detail};
  QString text;
  for (int i = 0; i < pattern.size(); ++i) {
    const int index = i + 1 < pattern.size() ? pattern[i + 1].unicode() - '1' : -1;
    if (pattern[i] == '%' && index >= 0 && index < 3) {
      text += values[index];
      ++i;
    } else {
      text += pattern[i];
    }
  }
  return text;
}

QString textOf(const Place& place, QString (*translated)(const char* text)) {
  const QString line = QString::number(place.line);
  const QString column = QString::number(place.column);
  if (place.fileName.isEmpty()) {
    if (place.line == 0) {
      return place.column == 0 ? QString()
                               : translated(QT_TRANSLATE_NOOP("Kyr_FileParse", "column %1"))
                                     .replace("%1", column);
    }
    return place.column == 0
               ? translated(QT_TRANSLATE_NOOP("Kyr_FileParse", "line %1")).replace("%1", line)
               : translated(QT_TRANSLATE_NOOP("Kyr_FileParse", "line %1, column %2"))
                     .replace("%1", line)
                     .replace("%2", column);
  }
  return place.fileName + (place.line > 0 ? ':' + line : QString()) +
         (place.line > 0 && place.column > 0 ? ':' + column : QString());
}

}  // namespace

QString shown(QString text) {
  constexpr int longestShown = 40;
  if (text.size() > longestShown) {
    text = text.left(longestShown - 3) + "...";
  }
  for (QChar& character : text) {
    const bool isPart = character.isPrint() || character.isSurrogate();
    character = isPart ? character : QChar('?');
  }
  return text;
}

qint64 countCharacters(const QChar* begin, const QChar* end) {
  return std::count_if(begin, end, [](QChar unit) { return !unit.isLowSurrogate(); });
}

QString inEnglish(const char* text) {
  return text;
}

QString sentence(const Finding& finding, QString (*translated)(const char* text)) {
  const QString place = textOf(finding.place, translated);
  const QString reason =
      finding.reason != nullptr ? filled(translated(finding.reason), finding) : finding.said;
  return place.isEmpty() ? reason : place + ": " + reason;
}

QString Place::toText() const {
  return textOf(*this, inEnglish);
}

const Finding* findingOf(const Error& error) {
  const auto* const placed = dynamic_cast<const Placed*>(&error);
  return placed != nullptr ? &placed->finding() : nullptr;
}

void raise(Finding finding, const QString& text) {
  raiseAs<Error>(std::move(finding), text);
}

void raiseEnd(Finding finding, const QString& text) {
  raiseAs<EndOfFile>(std::move(finding), text);
}

Place Error::getPlace() const {
  const Finding* const finding = findingOf(*this);
  return finding != nullptr ? finding->place : Place();
}

QString Error::getSentence() const {
  const Finding* const finding = findingOf(*this);
  return finding != nullptr ? sentence(*finding) : getText();
}

}  // namespace Kyr::FileParse
