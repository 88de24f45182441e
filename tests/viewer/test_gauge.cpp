#include "gauge/gauge_window.h"
#include "gauge/quantity_field.h"
#include "support/Support.h"

#include <kyr/app/KyrInit.h>
#include <kyr/i18n/KyrTranslator.h>
#include <kyr/units/KyrUnits.h>

#include <QImage>
#include <QLabel>
#include <QTest>

namespace {

using Gauge::GaugeWindow;

QString pointedAt(const GaugeWindow& window) {
  return window.findChild<Gauge::Dial*>()->accessibleDescription();
}

TEST(Gauges, TakeWhatIsTypedAndSayWhatIsWrong) {
  const KyrTest::TempDir settings;
  const KyrTest::ScopedEnvironment console("KYR_CONSOLE", "terminal");
  const KyrTest::ScopedEnvironment folder("KYR_CONFIG_DIR", settings.path().toUtf8());
  QStringList arguments{"gauge"};
  Kyr::KyrInit::InitLibrary(Kyr::ApplicationServer, arguments);
  const struct {
    const char* language;
    const char* typed;
    const char* kept;  // by the field
    const char* points;
    const char* says;
    const char* fault;
  } rows[] = {
      {"de", "12,5 mm", "12,5 mm", "12,5_mm", "Hinter der Zahl", "a quantity"},
      {"en", "1/2 in", "1/2 in", "12.7_mm", "Any unit may", "another unit, and the way to it"},
      {"en", "100 mm", "100 mm", "100_mm", "Any unit may", "the end of the scale, in inches, too"},
      {"fr", "12,5 mmx", "12,5 mm", "12,5_mm", "n’est pas une unité ici", "a key too many"},
      {"de", "1.000", "1.000", "1_mm", "1.000 kann 1 oder 1000 sein", "two readings"},
      {"de", "", "", "", "Hinter der Zahl", "an empty field is no fault"},
      {"en", "200 mm", "200 mm", "20_mm", "The largest value is 100_mm.", "beyond the scale"},
  };
  for (const auto& row : rows) {
    Kyr::KyrInit::InitTranslator(row.language);
    Kyr::installTranslator("Examples");
    GaugeWindow window(Gauge::instruments().front());
    window.show();
    QTest::keyClicks(&window.field(), row.typed);
    const auto expected = [](const char* text) {
      return QString::fromUtf8(text).replace('_', QChar(0xA0));
    };
    EXPECT_EQ(window.field().text(), row.kept) << row.fault;
    EXPECT_EQ(pointedAt(window), expected(row.points)) << row.fault;
    EXPECT_TRUE(window.message().contains(expected(row.says)))
        << row.fault << ": " << window.message().toStdString();
    const auto& message = *window.findChild<QLabel*>("message");
    EXPECT_LE(message.heightForWidth(message.width()), message.height()) << row.fault;
    window.setUnit(Kyr::Unit::Inch);
    EXPECT_EQ(window.field().text().contains(expected("_in")),
              window.field().reading().isAcceptable())
        << row.fault;
    Kyr::KyrInit::CloseTranslator();
  }
}

TEST(Gauges, ScreenshotsComeFromTheCommandLine) {
  const KyrTest::TempDir folder;
  const QString png = folder.file("shot.png");
  const KyrTest::ScopedEnvironment leaks("ASAN_OPTIONS", "detect_leaks=0");  // of its platform
  const std::tuple<QStringList, int, const char*> rows[] = {
      {{"--kind", "temperature", "--unit", "K", "--screenshot", png, "20 °C"}, 0, ""},
      {{"--screenshot", folder.file("no/such.png")}, 1, "cannot write"},
      {{"--kind", "area"}, 2, "no gauge for area"},
      {{"--unit", "furlong", "--screenshot", png}, 2, "no unit furlong"}};
  for (const auto& [words, code, says] : rows) {
    QFile::remove(png);
    const KyrTest::Ended ended = KyrTest::runProgram(KYR_GAUGE, words);
    EXPECT_EQ(ended.code, code) << says;
    EXPECT_TRUE(ended.errors.contains(says)) << ended.errors.toStdString();
    EXPECT_EQ(QImage(png).isNull(), code != 0) << says;
  }
}

}  // namespace
