#include <kyr/terminal/progress_line_p.h>

#include <gtest/gtest.h>

using namespace Kyr;

TEST(ProgressLine, FitsIntoAnyTerminal) {
  const QString mixed = QString::fromUtf8("R\xc3\xa4nder e\xcc\x81 \xe6\xb8\xac\xe5\xae\x9a ");
  for (const QString& text : {QString(), QString("Reading"), mixed.repeated(20)}) {
    for (int width = -1; width < 250; ++width) {
      for (const int percent : {0, 7, 100}) {
        const QString line = ProgressLine::bar(text, percent, 359999, width);
        EXPECT_LE(ProgressLine::columns(line), std::max(width, 0)) << width;
      }
    }
  }
}

TEST(ProgressLine, SaysHowFarItIs) {
  const struct {
    const char* text;
    int percent;
    double seconds;
    int width;
    const char* expected;
    const char* fault;
  } rows[] = {
      {"Reading", 50, 60, 45, "Reading           [#####.....]  50%  1:00    ", "the usual one"},
      {"Reading", 100, 60, 45, "Reading           [##########] 100%          ",
       "a time at the end"},
      {"Reading", 1, 0.5, 45, "Reading           [..........]   1%          ", "a time too early"},
      {"Reading", 1, 3637, 45, "Reading           [..........]   1%          ",
       "more than two digits of hours"},
      {"Reading all files now", 50, 40000, 45, "Reading all fi... [#####.....]  50%  11:06:40",
       "too long"},
      {"one\ntwo\x1b[2J", 50, 0, 45, "one two [2J       [#####.....]  50%          ", "controls"},
      {"Reading", 7, 60, 20, "7%", "no room for more"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(ProgressLine::bar(row.text, row.percent, row.seconds, row.width).toStdString(),
              row.expected)
        << row.fault;
  }
  EXPECT_EQ(ProgressLine::plain("a\tb", 7), "  7% a b");
  EXPECT_EQ(ProgressLine::columns(QString::fromUtf8("e\xcc\x81\xe6\xb8\xac")), 3);
}
