#include "tool/answers.h"

namespace {

QByteArray span(const char* name, double begin, double duration, int thread = 1) {
  return QString(R"({"name":"%1","cat":"c","ph":"X","ts":%2,"dur":%3,"pid":1,"tid":%4})")
      .arg(name)
      .arg(begin)
      .arg(duration)
      .arg(thread)
      .toUtf8();
}

QByteArray row(const char* name, const char* rest) {
  return QByteArray(name).leftJustified(33) + "c" + QByteArray(rest);
}

TEST(ToolTrace, SumsUp) {
  const QByteArray outer = span("outer", 0, 5000);
  const QByteArray inner = span("inner}\\\"", 1000, 2000);
  const QByteArray nested = '[' + inner + ",\n " + outer + ',' + span("inner}\\\"", 1500, 500) +
                            ',' + span("outer", 7000, 1000, 2) + ']';
  const QByteArray life = R"([{"name":"file","cat":"c","ph":"b","id":7,"ts":1000,"pid":1,"tid":1},)"
                          R"({"name":"file","cat":"c","ph":"e","id":8,"ts":2000,"pid":1,"tid":1},)"
                          R"({"name":"file","cat":"c","ph":"e","id":7,"ts":4500,"pid":1,"tid":2}])";
  const KyrTest::TempDir folder;
  KyrTest::expectAnswers(
      folder,
      {
          {"trace summary -", 0, "\nouter ", "", "the longest is not the first", nested},
          {"trace summary -", 0,
           row("outer",
               "                       2        6.000        4.000        3.000        "
               "5.000            2\n"),
           "", "of two threads", nested},
          {"trace summary -", 0,
           row("inner}\"",
               "                       2        2.000        2.000        1.250        "
               "2.000            1\n"),
           "", "the part inside of its own name counts twice", nested},
          {"trace summary -", 0, "1        3.500        3.500", "", "another's end", life},
          {"trace summary -", 0, "has no end", "", "a cut trace is refused",
           "[" + outer + ",\n{\"na"},
          {"trace summary -", 0, "outer ", "", "what is before the cut is lost", "[" + outer},
          {"trace summary -", 1, "", "byte 0: this is no trace", "an object", "{}"},
          {"trace summary -", 1, "", "byte 0: this is no trace", "nothing at all", ""},
          {"trace summary -", 1, "", "byte 1: an event begins with", "a number", "[1]"},
          {"trace summary -", 1, "", "byte 1: ", "no JSON", "[{1}]"},
          {"trace summary -", 1, "", "no \"dur\"", "no duration", R"([{"ph":"X","ts":1}])"},
          {"trace summary -", 1, "", "no \"ts\"", "a time before all times",
           R"([{"ph":"X","ts":-1,"dur":1}])"},
          {"trace summary -", 1, "", "byte 1: ", "a tower",
           "[{\"a\":" + QByteArray(90000, '[') + "}]"},
          {"trace summary -", 1, "", "longer than a MiB", "what fills the memory, by twos",
           "[{\"ab\":\"" + QByteArray(2000000, '\\')},
      });
}

}  // namespace
