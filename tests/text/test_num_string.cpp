#include <kyr/text/KyrNumString.h>

#include "support/Support.h"

using Kyr::NumString;

namespace {

QString joined(const NumString& text) {
  QStringList parts;
  for (unsigned i = 0; i < text.partsCount(); ++i) {
    int value = -1;
    const bool number = text.getNumberPart(i, &value);
    parts += text.getStringPart(i) + (number || value != -1 ? QString("=%1").arg(value) : "");
  }
  return parts.join(' ');
}

TEST(NumString, Parts) {
  const std::tuple<const char*, const char*, const char*> rows[] = {
      {"", "", "an empty text"},
      {"ab12cd", "ab 12=12 cd", "a number in between"},
      {"12ab", "12=12 ab", "a number first"},
      {"a1b2c3d", "a 1=1 b 2=2 c 3=3 d", "more parts than fit in place"},
      {"007", "007=7", "leading zeros"},
      {"2147483647", "2147483647=2147483647", "the largest value"},
      {"2147483648", "2147483648=2147483647", "one more"},
      {"18446744073709551617", "18446744073709551617=2147483647", "64 bits run over"},
      {"x\u0661\u06622", "x \u0661\u06622=2147483647", "digits of other scripts, mixed"},
      {"\u00b2\u2460", "\u00b2\u2460", "superscripts are no digits"},
  };
  for (const auto& [given, parts, fault] : rows) {
    NumString text("before1");
    text.setString(given);
    EXPECT_EQ(joined(text).toStdString(), parts) << fault;
    EXPECT_EQ(text.getString(), given);
  }
}

TEST(NumString, NaturalOrder) {
  // Every text is smaller than all that follow it.
  const QString rising =
      "|1x|007|07|07a|7|9|10|10a|12ab|12ab3|99999999999|2147483648|B|a10|a10b2|a10b10|b2|item9|"
      "item10|item10.tif|long_names_of_scans_9|long_names_of_scans_10|long_names_of_scans_10b1c1d9|"
      "long_names_of_scans_10b1c1d10|long_names_of_scans_10c|longer|x|x1|x1y|x1y01|x1y1|x10y|"
      "x\u0661|z\u00e4|\U0001f600|\uff5e";
  const QStringList ordered = rising.split('|');
  for (int i = 0; i < ordered.size(); ++i) {
    for (int j = 0; j < ordered.size(); ++j) {
      const NumString a = ordered[i];
      const NumString b = ordered[j];
      const bool right = a.compare(b) == int(i > j) - int(i < j) && (a < b) == (i < j) &&
                         (a <= b) == (i <= j) && (a > b) == (i > j) && (a >= b) == (i >= j) &&
                         (a == b) == (i == j) && (a != b) == (i != j);
      EXPECT_TRUE(right) << ordered[i].toStdString() << " and " << ordered[j].toStdString();
    }
  }
  EXPECT_EQ(NumString("a1").compare(QString("a1") + QChar(0)), -1) << "a zero is a character";
}

TEST(NumString, CountsUp) {
  const std::tuple<QString, int, QString, const char*> rows[] = {
      {"a007", 1, "a008", "the width stays"},
      {"a099", 1, "a100", "a carry into the zeros"},
      {"abc", 1, "abc", "no number"},
      {"3d scan 7 of 12 b", 2, "3d scan 7 of 14 b", "the last of several"},
      {"3d", 1, "4d", "a number first"},
      {"img9.tif", 1, "img10.tif", "the text behind it"},
      {"img9.tif", 2, "img110.tif", "parts keep their places"},
      {"9", 2, "11", "nothing behind it"},
      {QString(150, '0'), 3, QString(99, '0') + "3", "padding has an end"},
      {"x2147483646", 3, "x2147483647", "the largest stays"},
      {"x99999999999", 1, "x99999999999", "so does a larger one"},
  };
  for (const auto& [given, times, expected, fault] : rows) {
    NumString text(given);
    for (int i = 0; i < times; ++i) {
      text.increment();
    }
    EXPECT_EQ(text.getString(), expected) << fault;
  }
  NumString shortened(QString(150, '0') + "z");
  shortened.increment();
  EXPECT_EQ(shortened.compare(NumString("1z")), -1) << "reads what the text has lost";
}

}  // namespace
