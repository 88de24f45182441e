#include <kyr/changelog/KyrChangeLog.h>

#include "support/Support.h"

#include <QXmlStreamReader>

using Kyr::ChangeLog::Log;
using Kyr::ChangeLog::LogEntry;
using Version = Kyr::ChangeLog::VersionNumber;

namespace {

TEST(VersionNumber, IsReadAsScanfDoes) {
  const char* const rows[][3] = {
      {"v6.2.0-6", "v6.2.0-6", "numbers in another order"},
      {"v6.2.0-6beta", "v6.2.0-6", "text behind the build is ignored"},
      {"v6.2.0", "v0.0.0-0", "a build is needed"},
      {" v6.2.0-6", "v0.0.0-0", "a blank before the v"},
      {"v6 .2.0-6", "v0.0.0-0", "a blank behind a number"},
      {"v 6.\t2.\n+0- 06", "v6.2.0-6", "blanks, a sign and a zero before numbers"},
      {"v6.2.0--1", "v6.2.0-4294967295", "minus counts down from 2^32"},
      {"v+-6.2.0-6", "v0.0.0-0", "two signs"},
      {"v4294967295.0.0-4294967295", "v4294967295.0.0-4294967295", "all 32 bits"},
      {"v6.2.0-4294967296", "v0.0.0-0", "33 bits"},
      {"v6.18446744073709551617.0-6", "v0.0.0-0", "65 bits, which wrap to 1"},
      {"", "v0.0.0-0", "nothing"},
      {nullptr, "v0.0.0-0", "null"},
  };
  for (const auto& [text, read, catches] : rows) {
    EXPECT_EQ(Version::fromString(text).toString().toStdString(), read) << catches;
  }
}

TEST(VersionNumber, HasNamesAndAnOrder) {
  const char* const named[] = {"v6.1.0-9", "v6.1.1-9", "v6.2.0-9", "v7.0.0-9", "v0.0.0-0"};
  for (int i = 0; i < 5; ++i) {
    EXPECT_EQ(Version::version(static_cast<Version::Version_t>(i), 9).toString(), named[i]);
  }
  const Version ascending[] = {Version::invalidVersion(),       Version::fromString("v0.9.9-9"),
                               Version::version610(3),          Version::version610(4),
                               Version::fromString("v6.1.1-0"), Version::version620(0)};
  for (const Version& left : ascending) {
    for (const Version& right : ascending) {
      EXPECT_EQ(left < right, &left < &right) << left.toString().toStdString();
      EXPECT_EQ(left == right, &left == &right) << left.toString().toStdString();
      EXPECT_EQ(left != right, &left != &right) << left.toString().toStdString();
      EXPECT_EQ(left > right, &left > &right) << left.toString().toStdString();
      EXPECT_EQ(left <= right, &left <= &right) << left.toString().toStdString();
      EXPECT_EQ(left >= right, &left >= &right) << left.toString().toStdString();
    }
  }
}

TEST(VersionNumber, HasParts) {
  const Version made = Version::fromParts(6, 2, 1, 4294967295);
  EXPECT_EQ(made.toString(), "v6.2.1-4294967295");
  EXPECT_EQ(std::tuple(made.getMajor(), made.getMinor(), made.getPatch(), made.getBuild()),
            std::tuple(6U, 2U, 1U, 4294967295U));
}

/// An application's way to its entries.
struct Entry : LogEntry {
  explicit Entry(const QString& description)
      : LogEntry("", Version::version620(6), Type_t(4), "A", "", description) {}
  using LogEntry::elementCreated, LogEntry::elementRemoved, LogEntry::elementRenamed,
      LogEntry::elementSemantics;
};

TEST(LogEntry, IsASentence) {
  const Version version = Version::version620(6);
  const std::pair<LogEntry, const char*> rows[] = {
      // The rows are in the order of the types of entries.
      {Entry::elementCreated("", version, "A"), "new [A]."},
      {Entry::elementRenamed("", version, "%2", "%1", "Why."), "[%2] renamed to [%1]. Why."},
      {Entry::elementRemoved("", version, "A", "%1 & <b>"), "removed [A]. %1 &amp; &lt;b&gt;"},
      {Entry::elementSemantics("", version, "\"'"), "changed semantics of [&quot;&#39;]."},
      {Entry("a\r\nb\rc"), "a<br/>b<br/>c"},
  };
  int type = 0;
  for (const auto& [entry, html] : rows) {
    EXPECT_EQ(entry.getType(), type++);
    EXPECT_EQ(entry.getHtmlText(),
              QString(html).replace('[', "<code class=\"token\">").replace(']', "</code>"));
  }
}

Log mixedLog() {
  const char* const elements[][3] = {{"v6.1.0-1", "b", "1"}, {"v6.2.0-1", "a", "2"},
                                     {"v6.1.0-1", "", "3"},  {"v6.2.0-1", "b", "4"},
                                     {"v6.2.0-1", "a", "5"}, {"none", "B", "6"}};
  Log log;
  for (const auto& [version, context, name] : elements) {
    log.addEntry(Entry::elementCreated(context, Version::fromString(version), name));
  }
  return log;
}

/// Headings as "2:text", lists in brackets, and elements by their names.
std::string outline(const Log& log, int grouping) {
  return log.transformToHtml(static_cast<Log::Grouping_t>(grouping))
      .remove(QRegularExpression("<li>.*\">(?=.</code>)|</code>.</li>|\n|</h.>"))
      .replace(QRegularExpression("<h(.) class=\"history\">"), " \\1:")
      .replace("<ul>", "[")
      .replace("</ul>", "]")
      .toStdString();
}

TEST(Log, IsGrouped) {
  const std::tuple<Log, int, const char*> rows[] = {
      {mixedLog(), Log::NoGrouping, "[123456]"},
      {mixedLog(), 3, "[123456]"},
      {mixedLog(), Log::ByContext, "[3] 2:B[6] 2:a[25] 2:b[41]"},
      {mixedLog(), Log::ByVersion,
       " 2:v6.2.0-1 3:a[25] 3:b[4] 2:v6.1.0-1[3] 3:b[1] 2:v0.0.0-0 3:B[6]"},
      {Log(), Log::NoGrouping, "[]"},
      {Log(), Log::ByVersion, ""},
  };
  for (const auto& [log, grouping, expected] : rows) {
    EXPECT_EQ(outline(log, grouping), expected) << grouping;
  }
  Log one;
  one.addEntry(Entry::elementCreated("x<y", Version::version620(6), "A"));
  EXPECT_EQ(one.transformToHtml(Log::ByContext),
            "<h2 class=\"history\">x&lt;y</h2>\n<ul>\n<li><span class=\"version\">v6.2.0-6:</span> "
            "new <code class=\"token\">A</code>.</li>\n</ul>\n");
  Log twice = mixedLog();
  EXPECT_EQ(outline(twice.addLog(twice), 0), "[123456123456]") << "a log into itself";
  EXPECT_EQ(twice.size(), 12U);
}

TEST(Log, MakesAWellFormedPageOfAnything) {
  QString all = "</code></script>]]><!--&nbsp;&#0;%1%2%3" + QString::fromUcs4(U"\U0001FFFE");
  for (uint code = 0; code < 0x10000; ++code) {
    all += QChar(code);  // lone surrogates too
  }
  Log log;
  log.addEntry(Entry::elementRenamed(all, Version::version620(1), all, all, all));
  for (const auto grouping : {Log::NoGrouping, Log::ByContext, Log::ByVersion}) {
    const QString page = log.transformToPage(all, grouping);
    QXmlStreamReader xml(page.toUtf8());  // stricter than HTML
    while (!xml.atEnd()) {
      xml.readNext();
    }
    EXPECT_EQ(xml.errorString(), "") << grouping;
    EXPECT_FALSE(page.contains(QRegularExpression("[\\x00-\\x08\\x0b-\\x1f\\x7f-\\x9f\\x{fffe}]")));
    EXPECT_TRUE(page.contains(log.transformToHtml(grouping))) << grouping;
    EXPECT_FALSE(page.contains(QRegularExpression("<title>.*<br/>.*</title>"))) << "is not drawn";
    EXPECT_EQ(QString::fromUtf8(page.toUtf8()), page) << "half a surrogate pair";
  }
}

}  // namespace
