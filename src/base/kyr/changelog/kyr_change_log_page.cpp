#include <kyr/changelog/KyrChangeLog.h>
#include <kyr/changelog/change_log_html_p.h>

#include <kyr/i18n/KyrTranslator.h>

namespace Kyr::ChangeLog {

namespace {

/// The style of the page. Lines do not repeat the version that their heading names; wrapped lines
/// keep clear of the version in front, and long names break anywhere rather than leave the page.
constexpr const char* style = R"(
:root { color-scheme: light dark; --line: #d4d9de; --quiet: #5b6670; --chip: #eef1f4; }
body {
  max-width: 46rem; margin: 2.5rem auto; padding: 0 1.25rem;
  font: 1rem/1.5 system-ui, "Segoe UI", "DejaVu Sans", sans-serif;
}
h1 { font-size: 1.7rem; line-height: 1.2; margin: 0 0 1.5rem; overflow-wrap: anywhere; }
h2, h3 { break-after: avoid; overflow-wrap: anywhere; }
h2 { font-size: 1.2rem; margin: 2rem 0 .5rem; padding-bottom: .2rem;
     border-bottom: 1px solid var(--line); }
h3 { font-size: 1rem; margin: 1.25rem 0 .25rem; color: var(--quiet); }
ul { list-style: none; margin: 0; padding: 0; }
li { margin: .3rem 0; padding-left: 6.5rem; text-indent: -6.5rem; break-inside: avoid;
     overflow-wrap: anywhere; }
.version { display: inline-block; min-width: 6.2rem; text-indent: 0; color: var(--quiet);
           font-variant-numeric: tabular-nums; }
.by-version .version { display: none; }
.by-version li { padding-left: 1.5rem; text-indent: -1.5rem; }
.token { font: .9em ui-monospace, Consolas, "DejaVu Sans Mono", monospace; padding: .1em .3em;
         border-radius: .25em; background: var(--chip); -webkit-box-decoration-break: clone;
         box-decoration-break: clone; }
@media (prefers-color-scheme: dark) {
  :root { --line: #3c444c; --quiet: #a3adb7; --chip: #2a3138; }
  body { background: #15191d; color: #e6e9ec; }
}
@media (max-width: 30rem) {
  li, .by-version li { padding-left: 1rem; text-indent: -1rem; }
  .version { min-width: 0; }
}
@media print {
  :root { color-scheme: light; --line: #999; --quiet: #444; --chip: none; }
  @page { margin: 20mm; }
  body { max-width: none; margin: 0; padding: 0; font-size: 10pt; background: none; color: #000; }
  h1 { font-size: 17pt; }
  h2 { font-size: 13pt; }
  h3 { font-size: 10.5pt; }
  .token { padding: 0; font-weight: 600; }
}
)";

/// The language's name in HTML, which differs for the shortcuts that are those of countries.
QString languageTag() {
  const Translator* const translator = Translator::instance();
  const QString shortcut = translator ? translator->getLanguageShortcut() : QString("en");
  return shortcut == "jp" ? QString("ja") : shortcut == "cn" ? QString("zh") : shortcut;
}

}  // namespace

QString Log::transformToPage(const QString& title, Grouping_t grouping) const {
  const QString kind = grouping == ByContext   ? "by-context"
                       : grouping == ByVersion ? "by-version"
                                               : "in-order";
  return "<!DOCTYPE html>\n<html lang=\"" + languageTag() +
         "\">\n<head>\n<meta charset=\"utf-8\"/>\n"
         "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\"/>\n<title>" +
         htmlOf(title.simplified()) + "</title>\n<style>" + style +
         "</style>\n</head>\n<body class=\"" + kind + "\">\n<h1>" + htmlOf(title) + "</h1>\n" +
         transformToHtml(grouping) + "</body>\n</html>\n";
}

}  // namespace Kyr::ChangeLog
