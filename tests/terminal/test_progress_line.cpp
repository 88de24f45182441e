#include <kyr/terminal/KyrColumns.h>
#include <kyr/terminal/progress_line_p.h>

#include <gtest/gtest.h>

using namespace Kyr;

TEST(ProgressLine, FitsIntoAnyTerminal) {
  const QString mixed = QString::fromUtf8("R\xc3\xa4nder e\xcc\x81 \xe6\xb8\xac\xe5\xae\x9a ");
  for (const QString& text : {QString(), QString("Reading"), mixed.repeated(20)}) {
    for (int width = -1; width < 250; ++width) {
      for (const int percent : {0, 7, 100}) {
        const QString line = ProgressLine::bar(text, percent, 359999, width);
        EXPECT_LE(columnsOf(line), std::max(width, 0)) << width;
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
}

TEST(Columns, OfWideLettersAndMarks) {
  const struct {
    const char* word;
    int columns;
    const char* pieces;
    const char* catches;
  } rows[] = {
      {"", 0, "", "nothing"},
      {"e\u0301\u6e2c", 3, "e\u0301|\u6e2c", "a mark, a wide letter"},
      {"well-known/x", 12, "well-known/x", "a hyphen ends no line"},
      {"\u5e73\u5747\u3002", 6, "\u5e73|\u5747\u3002", "a full stop stays behind its word"},
      {"\u300ckyr\u300d\u306f", 9, "\u300ckyr\u300d|\u306f", "quotes stay at their word"},
      {"kyr\u306e", 5, "kyr|\u306e", "between two writings"},
      {"\u00ab\u00a0x\u00a0\u00bb", 5, "\u00ab\u00a0x\u00a0\u00bb", "no-break blanks"},
  };
  for (const auto& row : rows) {
    const QString word = QString::fromUtf8(row.word);
    EXPECT_EQ(columnsOf(word), row.columns) << row.catches;
    EXPECT_EQ(breakablePieces(word).join('|').toStdString(), row.pieces) << row.catches;
  }
  EXPECT_EQ(filledTo(QString::fromUtf8("\u6e2c"), 4).toStdString(), "\u6e2c  ");
  EXPECT_EQ(filledTo("four", 3), "four");
}
