// Texts with numbers, as the catalogue of the examples has them.
#include "app/home.h"
#include "support/Shared.h"

#include <kyr/i18n/KyrTranslate.h>
#include <kyr/i18n/KyrTranslator.h>

using namespace Kyr;
using namespace KyrTest;

namespace {

TEST(TranslateNumber, ChoosesTheFormForANumber) {
  const std::tuple<const char*, quint64, const char*, const char*> rows[] = {
      {"de", 1, "%1 Punkt", "the form for 1"},
      {"de", 0, "%1 Punkte", "the other form"},
      {"fr", 0, "%1 point", "0 is singular there, and the word is English as well"},
      {"fr", 2, "%1 points", "2 is not"},
      {"de", (quint64(1) << 32) + 1, "%1 Punkte", "more than Qt can take"},
      {"pt", quint64(1000000), "%1 pontos", "a number that is not 0"},
      {"jp", 1, "%1 \xe7\x82\xb9", "one form for all"},
      {"en", 1, "%1 point", "no catalogue has it"},
      {"en", 0, "%1 points", "English in the code"},
  };
  const Home home;
  inChild([&] {
    home.start({{"KYR", QString()}});
    const Program program;
    for (const auto& [language, number, form, catches] : rows) {
      KyrInit::InitTranslator(language);
      installTranslator("Examples");
      home.say(translate("Surface", "%1 point", "%1 points", number) + "\n");
      KyrInit::CloseTranslator();
    }
  });
  const QStringList said = QString::fromStdString(home.said()).split('\n');
  int line = 0;
  for (const auto& [language, number, form, catches] : rows) {
    EXPECT_EQ(said.value(line++).toStdString(), form)
        << language << ' ' << number << ' ' << catches;
  }
  EXPECT_EQ(translate("Surface", "%1 point", "%1 points", 2), "%1 points") << "no translator";
  const Translator translator("de");
  EXPECT_TRUE(translate("Surface", nullptr, "", 1).isNull());
}

}  // namespace
