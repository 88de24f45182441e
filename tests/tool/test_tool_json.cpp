#include "tool/answers.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

using KyrTest::Ended;

/// The value at the end of a way as "units/0/factor".
QJsonValue at(QJsonValue value, const QString& way) {
  for (const QString& step : way.split('/')) {
    value = value.isArray() ? value.toArray().at(step.toInt()) : value.toObject().value(step);
  }
  return value;
}

TEST(ToolJson, AnswersPrograms) {
  const KyrTest::TempDir folder;
  const KyrTest::ScopedEnvironment locale("LC_ALL", "de_DE.UTF-8");
  QByteArray text;
  for (int i = 0; i < 120000; ++i) {
    text += QByteArray::number(i * 7919 % 100003) + '\n';
  }
  folder.write("µ 'b'", text);
  const auto run = [&](const QStringList& words) {
    return KyrTest::runProgram(KYR_TOOL, words, folder.path());
  };
  EXPECT_EQ(run({"zip", "pack", "µ 'b'", "good", "--workers=2"}).code, 0);
  QByteArray packed = KyrTest::readFile(folder.file("good"));
  folder.write("damaged", packed.replace(packed.size() / 2, 1, "?"));
  EXPECT_EQ(run({"tar", "create", "a.tgz", "µ 'b'"}).code, 0);
  const QByteArray size = QByteArray::number(text.size());
  const struct {
    const char* words;
    const char* way;
    QByteArray value;
    int code = 0;
  } rows[] = {
      {"convert 1 mm in", "result", "0.03937007874015748"},
      {"convert 1 mm in", "kind", "\"LENGTH\""},
      {"convert 2ft mm", "value", "2"},
      {"convert 2ft mm", "from", "\"ft\""},
      {"units", "kinds/0/units/1", "\"µm\""},
      {"units temperature", "units/3/factor", "0.5555555555555556"},
      {"units time", "otherNames/9/unit", "null"},
      {"zip info good", "state", "\"complete\""},
      {"zip info good", "pieces", "3"},
      {"zip info good --all", "pieceList/1/contentOffset", "262144"},
      {"zip verify good", "contentBytes", size},
      {"zip verify damaged", "state", "\"damaged\"", 1},
      {"zip verify damaged", "lost/0/contentOffset", "262144", 1},
      {"tar list a.tgz", "files/0/name", "\"µ 'b'\""},
      {"tar list a.tgz", "files/0/size", size},
      {"info", "Versions/libKyr", "\"6.2.0-6\""},
      {"info", "Directories/0/directory", "\"software\""},
  };
  for (const auto& row : rows) {
    const Ended ended = run(QString(row.words).split(' ') << "--json");
    EXPECT_EQ(ended.code, row.code) << row.words;
    const QJsonValue value = at(QJsonDocument::fromJson(ended.output).object(), row.way);
    const QJsonArray wanted = QJsonDocument::fromJson('[' + row.value + ']').array();
    EXPECT_EQ(QJsonDocument({value}).toJson(), QJsonDocument(wanted).toJson())
        << row.words << ": " << row.way;
  }
  const Ended failed = run({"zip", "info", "--json", "missing"});
  EXPECT_TRUE(failed.code == 1 && failed.output.isEmpty() && failed.errors.contains("missing"));
}

}  // namespace
