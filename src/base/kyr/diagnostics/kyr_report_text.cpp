#include <kyr/diagnostics/report_p.h>

#include <QDateTime>
#include <QLocale>

#include <algorithm>
#include <new>

namespace Kyr {

namespace {

constexpr int widestColumn = 60;

/// The widths of the columns: those of their widest cells, but for cells so wide that they would
/// push the others away.
std::vector<int> widthsOf(const std::vector<QStringList>& rows) {
  std::vector<int> widths;
  for (const QStringList& row : rows) {
    widths.resize(std::max(widths.size(), std::size_t(row.size())));
    for (int i = 0; i < row.size(); ++i) {
      int& width = widths[std::size_t(i)];
      width = std::min(std::max(width, static_cast<int>(row[i].size())), widestColumn);
    }
  }
  return widths;
}

/// A row as text; further lines of a cell stand below its first.
QString lineOf(const QStringList& row, const std::vector<int>& widths) {
  QString line = "  ";
  int indent = 2;
  for (int i = 0; i < row.size(); ++i) {
    const int width = widths[std::size_t(i)];
    QString cell = row[i];
    cell.replace('\n', '\n' + QString(indent, ' '));
    line += i + 1 < row.size() ? cell.leftJustified(width) + "  " : cell;
    indent += width + 2;
  }
  while (line.endsWith(' ')) {
    line.chop(1);
  }
  return line + '\n';
}

QStringList visibleRow(const QStringList& row) {
  QStringList shown;
  std::transform(row.begin(), row.end(), std::back_inserter(shown), Report::visible);
  return shown;
}

/// The text with another character in the place of each half of a surrogate pair, at which searches
/// fail. Its length stays.
QString withoutHalves(QString text) {
  for (int i = 0; i < text.size(); ++i) {
    const bool isPair =
        text.at(i).isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate();
    if (isPair) {
      ++i;
    } else if (text.at(i).isSurrogate()) {
      text[i] = QChar::ReplacementCharacter;
    }
  }
  return text;
}

}  // namespace

QString Report::visible(const QString& text) {
  QString shown;
  shown.reserve(text.size());
  for (int i = 0; i < text.size(); ++i) {
    const QChar character = text[i];
    const bool isPair =
        character.isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate();
    const uint code =
        isPair ? QChar::surrogateToUcs4(character, text[++i]) : uint(character.unicode());
    if (code == '\n' || (QChar::isPrint(code) && !QChar::isSurrogate(code))) {
      shown += QString::fromUcs4(&code, 1);
    } else {
      shown += QString("\\x%1").arg(code, 2, 16, QLatin1Char('0'));
    }
  }
  return shown;
}

QRegularExpression Report::expression(const QString& pattern,
                                      QRegularExpression::PatternOptions options) {
  QRegularExpression made(pattern, options);
  if (!made.isValid()) {
    throw std::bad_alloc();
  }
  return made;
}

QRegularExpressionMatch Report::search(const QRegularExpression& pattern, const QString& text,
                                       QString::size_type from) {
  QRegularExpressionMatch found = pattern.match(text, from);
  if (!found.isValid()) {
    found = pattern.match(withoutHalves(text), from);
  }
  if (!found.isValid()) {
    throw std::bad_alloc();
  }
  return found;
}

QString Report::sizeText(std::uint64_t bytes) {
  return QLocale::c().formattedDataSize(static_cast<qint64>(bytes), 1);
}

QString Report::timeText(std::int64_t seconds) {
  const QDateTime local = QDateTime::fromSecsSinceEpoch(seconds);
  const QString text = local.toOffsetFromUtc(local.offsetFromUtc()).toString(Qt::ISODate);
  return QString(text).replace('T', ' ').replace("Z", "+00:00").insert(19, ' ');
}

QString Report::textOf(const Section& section) {
  const QString title = visible(section.title);
  QString text = title + '\n' + QString(title.size(), '-') + '\n';
  for (const QString& remark : section.remarks) {
    text += "  ! " + visible(remark) + '\n';
  }
  std::vector<QStringList> rows;
  if (!section.columns.isEmpty() && !section.rows.empty()) {
    rows.push_back(visibleRow(section.columns));
  }
  std::transform(section.rows.begin(), section.rows.end(), std::back_inserter(rows), visibleRow);
  if (rows.empty() && section.remarks.isEmpty()) {
    text += "  nothing found\n";
  }
  const std::vector<int> widths = widthsOf(rows);
  for (const QStringList& row : rows) {
    text += lineOf(row, widths);
  }
  return text;
}

QString SystemReport::toText() const {
  QStringList texts;
  if (_crash) {
    texts += Report::textOf(Report::describeCrash(*_crash, _files));
  }
  for (const Section& section : _sections) {
    texts += Report::textOf(section);
  }
  for (const QString& remark : _remarks) {
    texts += "! " + Report::visible(remark) + '\n';
  }
  return texts.join('\n');
}

}  // namespace Kyr
