#include <kyr/diagnostics/report_p.h>

#include <kyr/os/KyrOS.h>
#include <kyr/text/KyrQuoting.h>

#include <QSysInfo>
#include <QUrl>

#include <algorithm>

namespace Kyr {

namespace {

/// The style of the page, for screens, dark ones too, and for paper.
constexpr const char* style = R"(
:root { --ink: #1c2430; --faint: #5d6b7d; --line: #d8dee6; --paper: #fff; --ground: #f2f4f7;
  --accent: #1f5fa8; --warn: #8a4b00; --warn-ground: #fff3dc; }
@media screen and (prefers-color-scheme: dark) {
  :root { --ink: #dde4ec; --faint: #98a5b5; --line: #36404c; --paper: #1d242d; --ground: #14191f;
    --accent: #7db4f0; --warn: #ffca7a; --warn-ground: #3a2c12; } }
* { box-sizing: border-box; }
body { margin: 0; background: var(--ground); color: var(--ink);
  font: 15px/1.45 system-ui, "Segoe UI", "DejaVu Sans", sans-serif; }
header, main { max-width: 76rem; margin: 0 auto; padding: 0 1.5rem; }
header { padding-top: 1.8rem; }
h1 { font-size: 1.6rem; margin: 0; }
header p { margin: .2rem 0 0; color: var(--faint); }
nav { display: flex; flex-wrap: wrap; gap: .4rem; margin: 1.1rem 0; padding: 0; }
nav a { padding: .15rem .7rem; border: 1px solid var(--line); border-radius: 1rem;
  background: var(--paper); text-decoration: none; white-space: nowrap; }
a { color: var(--accent); }
section { background: var(--paper); border: 1px solid var(--line); border-radius: .5rem;
  margin: 0 0 1.2rem; padding: .9rem 1.2rem 1.1rem; }
h2 { font-size: 1.1rem; margin: 0 0 .5rem; display: flex; justify-content: space-between;
  align-items: baseline; gap: 1rem; }
h2 a { font-size: .8rem; font-weight: normal; }
table { width: 100%; border-collapse: collapse; }
th, td { text-align: left; vertical-align: top; padding: .22rem 1rem .22rem 0;
  border-top: 1px solid var(--line); overflow-wrap: anywhere; }
thead th { border-top: 0; color: var(--faint); font-weight: normal; }
tbody th { font-weight: normal; color: var(--faint); width: 19rem; }
td { font: .87em/1.5 ui-monospace, Consolas, "DejaVu Sans Mono", monospace; }
.remarks { margin: 0 0 .6rem; padding: .45rem .8rem .45rem 1.8rem; border-radius: .3rem;
  background: var(--warn-ground); color: var(--warn); }
.nothing { color: var(--faint); margin: 0; }
@media print {
  @page { margin: 15mm; }
  body { background: none; font-size: 9.5pt; }
  header, main { max-width: none; padding: 0; }
  nav, h2 a { display: none; }
  section { border: 0; padding: 0; }
  h2 { break-after: avoid; border-bottom: 1.5pt solid var(--ink); padding-bottom: 2pt; }
  tr { break-inside: avoid; } thead { display: table-header-group; }
}
)";

QString escaped(const QString& text) {
  return tokenizeRT(Report::visible(text), false).replace("<br>", "<br/>");
}

QString element(const char* name, const QString& content) {
  return QString("<%1>%2</%1>").arg(name, content);
}

QString link(const QString& target, const QString& content) {
  return QString("<a href=\"%1\">%2</a>").arg(escaped(target), content);
}

QString addressOf(const QString& fileName) {
  return QString::fromLatin1(QUrl::toPercentEncoding(fileName, "/"));
}

/// The page of one report.
class Page {
 public:
  /// \param textNames the files that hold the sections as text
  Page(const SystemReport& report, const QStringList& textNames)
      : _report(report), _textNames(textNames) {}

  QString html() const {
    return "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\"/>\n"
           "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\"/>\n" +
           element("title", escaped(_report.name())) + "\n<style>" + style +
           "</style>\n</head>\n<body>\n" + header() + "<main>\n" + crash() +
           remarks(_report.missing()) + sections() + filesSection() + "</main>\n</body>\n</html>\n";
  }

 private:
  QString header() const {
    QString nav;
    for (std::size_t i = 0; i < _report.sections().size(); ++i) {
      const SystemReport::Section& section = _report.sections()[i];
      const QString mark = section.remarks.isEmpty() ? QString() : QString(" \u26a0");
      nav += link(QString("#part%1").arg(i + 1), escaped(section.title + mark)) + '\n';
    }
    nav += _report.files().empty() ? QString() : link("#files", "Files") + '\n';
    return "<header>\n" + element("h1", "System report") + '\n' +
           element("p", escaped(QString("%1 \u00b7 %2 \u00b7 %3")
                                    .arg(_report.name(), QSysInfo::machineHostName(),
                                         OS::getSystemName()))) +
           "\n<nav>\n" + nav + "</nav>\n</header>\n";
  }

  QString crash() const {
    if (!_report.crash()) {
      return {};
    }
    const SystemReport::Section section = Report::describeCrash(*_report.crash(), _report.files());
    return "<section id=\"crash\">\n" + element("h2", escaped(section.title)) + '\n' +
           remarks(section.remarks) + table(section) + "</section>\n";
  }

  static QString remarks(const QStringList& remarks) {
    QString items;
    for (const QString& remark : remarks) {
      items += element("li", escaped(remark));
    }
    return items.isEmpty() ? QString() : "<ul class=\"remarks\">" + items + "</ul>\n";
  }

  QString sections() const {
    QString html;
    for (std::size_t i = 0; i < _report.sections().size(); ++i) {
      const SystemReport::Section& section = _report.sections()[i];
      html +=
          QString("<section id=\"part%1\">\n").arg(i + 1) +
          element("h2", escaped(section.title) + link(addressOf(_textNames[int(i)]), "as text")) +
          '\n' + remarks(section.remarks) + content(section) + "</section>\n";
    }
    return html;
  }

  QString content(const SystemReport::Section& section) const {
    if (!section.rows.empty()) {
      return table(section);
    }
    return section.remarks.isEmpty() ? "<p class=\"nothing\">nothing found</p>\n" : "";
  }

  QString table(const SystemReport::Section& section) const {
    QString html = "<table>\n";
    if (!section.columns.isEmpty()) {
      html += element("thead", row(section.columns, "th", "th")) + '\n';
    }
    html += "<tbody>\n";
    for (const QStringList& cells : section.rows) {
      html += row(cells, section.columns.isEmpty() ? "th" : "td", "td");
    }
    return html + "</tbody>\n</table>\n";
  }

  QString row(const QStringList& cells, const char* first, const char* other) const {
    QString html;
    for (int i = 0; i < cells.size(); ++i) {
      html += element(i == 0 ? first : other, cell(cells[i]));
    }
    return element("tr", html) + '\n';
  }

  /// A cell that begins with the name of a packed file leads there.
  QString cell(const QString& text) const {
    const QString name = text.section(" (", 0, 0);
    const auto& files = _report.files();
    const bool isFile = std::any_of(files.begin(), files.end(),
                                    [&](const auto& file) { return file.name == name; });
    return isFile ? link(addressOf(name), escaped(text)) : escaped(text);
  }

  QString filesSection() const {
    if (_report.files().empty()) {
      return {};
    }
    SystemReport::Section section;
    section.columns = QStringList{"file", "bytes", "changed"};
    for (const SystemReport::File& file : _report.files()) {
      section.rows.push_back(
          {file.name, QString::number(file.contents.size()), Report::timeText(file.modified)});
    }
    return "<section id=\"files\">\n" + element("h2", "Files") + '\n' + table(section) +
           "</section>\n";
  }

  const SystemReport& _report;
  const QStringList& _textNames;
};

}  // namespace

QString SystemReport::toHtml() const {
  QStringList textNames;
  for (std::size_t i = 0; i < _sections.size(); ++i) {
    textNames += textName(i);
  }
  return Page(*this, textNames).html();
}

}  // namespace Kyr
