// The translator in processes with a home of their own. The catalogues of the build lie beside the
// folder of its programs.
#include "app/home.h"
#include "support/Shared.h"

#include <kyr/i18n/KyrTranslate.h>
#include <kyr/i18n/KyrTranslator.h>
#include <kyr/pack/KyrZipStream.h>

using namespace Kyr;
using namespace KyrTest;

namespace {

QString shortcuts(unsigned mask, const QString& application = "Motion") {
  const Translator translator(mask, application);
  return QString("%1 %2").arg(translator.getLanguageShortcut()).arg(translator.getLanguage());
}

TEST(Language, IsReadFromTheFile) {
  const std::tuple<QByteArray, unsigned, const char*, const char*> rows[] = {
      {"language=french \t\n", 63, "fr 2", "blanks behind the name"},
      {"language=jp\n", 63, "jp 3", "a shortcut, as setLanguage() writes it"},
      {"language=chinese\r\nx", 8 | 16, "cn 4", "an end of line from another system"},
      {"language=portuguese\nlanguage=german\n", 63, "pt 5", "a line behind the first"},
      {"language=" + QByteArray(1000, ' ') + "german\n", 63, "en 0", "over 1000 bytes are read"},
      {"language=french\n", 2 | 32, "en 0", "a language that is not offered"},
      {"language= german\n", 63, "en 0", "blanks before the name"},
      {"", 63, "en 0", "an empty file"},
  };
  const Home home;
  inChild([&] {
    home.start({{"LC_ALL", "en_US.UTF-8"}, {"KYR", home.path()}});
    const QString own = KyrInit::createVersionConfigName("Motion_language.dat");
    for (const auto& [file, mask, chosen, catches] : rows) {
      KyrTest::writeFile(own, file);
      home.say(shortcuts(mask) + "\n");
    }
    QDir(home.path()).mkpath("config/v6.2.0");
    QFile::remove(own);
    KyrTest::writeFile(home.file("config/Other App_language.dat"), "language=german");
    home.say(shortcuts(63, "Other App") + shortcuts(63, "None"));
  });
  const QStringList said = QString::fromStdString(home.said()).split('\n');
  int line = 0;
  for (const auto& [file, mask, chosen, catches] : rows) {
    EXPECT_EQ(said.value(line++).toStdString(), chosen) << catches;
  }
  EXPECT_EQ(said.value(line).toStdString(), "de 1en 0") << "the file of the software directory";
}

TEST(Language, IsKeptForTheNextStart) {
  const Home home;
  inChild([&] {
    home.start({{"LC_ALL", "en_US.UTF-8"}, {"KYR", QString()}});
    const Program program;
    KyrInit::InitTranslator(Translator::allLanguages, "Other App");
    Translator::instance()->setLanguage(Translator::French);
    Translator::instance()->setLanguage(static_cast<Translator::Lang_t>(6));
    home.say(QString::number(Translator::instance()->getLanguage()) +
             translate("Kyr_Translator", "language: german") + "|");
    KyrInit::CloseTranslator();
    KyrInit::InitTranslator(2 | 4, {});
    std::vector<QString> codes(1);
    std::vector<QString> names(1);
    Translator::instance()->getAllLanguages(&codes, &names);
    for (std::size_t i = 0; i < codes.size(); ++i) {
      home.say(codes[i] + names[i] + "|");
    }
    home.say(QString::number(Translator::instance()->getDefaultLanguage()));
    QDir(home.file("config/v6.2.0")).removeRecursively();
    KyrTest::writeFile(home.file("config/v6.2.0"), "");
    Translator::instance()->setLanguage(Translator::German);
  });
  EXPECT_EQ(home.said(),
            "2German|enAnglais|deAllemand|frFran\xc3\xa7"
            "ais|0");
  EXPECT_TRUE(KyrTest::readFile(home.file("output")).contains("Motion_language.dat'."))
      << "nobody hears that the language is not kept";
}

TEST(Translator, IsTheOnlyOneAndKeepsAFixedLanguage) {
  const auto second = inChild([] {
    const Translator first("de");
    const Translator other(63, "Motion");
  });
  EXPECT_EQ(reportProblem(second,
                          KyrTest::report("trying to install second translator",
                                          "Kyr::Translator::initLanguage", "kyr_translator", 195)),
            "");
  const auto fixed = inChild([] { Translator("de").setLanguage(Translator::German); });
  EXPECT_EQ(reportProblem(fixed, "\nInternal program error: Language is fixed\n\n"), "");
  const Translator unknown("xx");
  EXPECT_EQ(unknown.getLanguage() + unknown.getDefaultLanguage(), 0);
  EXPECT_EQ(Translator::instance(), &unknown);
}

TEST(Translate, WithoutATranslatorDependsOnTheApplication) {
  EXPECT_EQ(translate("Kyr_zip_err", "\xc3\xa4"), QString(QChar(0xE4))) << "no application";
  EXPECT_TRUE(translate("Kyr_zip_err", nullptr).isNull());
  installTranslator("Kyr");
  KyrInit::CloseTranslator();
  const Home home;
  for (const Application_t application : {ApplicationServer, ApplicationProduction}) {
    inChild([&] {
      home.start({}, {}, application);
      home.say(translate("Kyr_zip_err", "text"));
    });
    EXPECT_EQ(home.said(), "text") << application;
  }
  inChild([&] {
    home.start({}, {}, ApplicationViewer);
    home.say(ZipInStream(home.file("missing"), 1).getHeaderErrorText());
    home.say(translate("Kyr_zip_err", "text"));
  });
  EXPECT_EQ(home.said(), "cannot read zip stream header") << "a bad file ends the application";
  EXPECT_TRUE(KyrTest::readFile(home.file("output"))
                  .contains("\nInternal program error: No Translator instantiated\n"));
}

TEST(Catalogues, AreThereInEveryLanguage) {
  const Home home;
  inChild([&] {
    home.start({{"KYR", QString()}});
    const Program program;
    for (const char* language : {"en", "de", "jp"}) {
      KyrInit::InitTranslator(language);
      home.say(translate("Kyr_zip_err", "unknown file version") + "|" +
               translate("Kyr_Translator", "language: chinese") + "\n");
      KyrInit::CloseTranslator();
    }
    home.say(QCoreApplication::translate("Kyr_zip_err", "unknown file version"));
  });
  EXPECT_EQ(home.said(),
            "unknown file version|Chinese\nunbekannte Dateiversion|Chinesisch\n"
            "\xe4\xb8\x8d\xe6\x98\x8e\xe3\x81\xaa\xe3\x83\x95\xe3\x82\xa1\xe3\x82\xa4\xe3\x83\xab"
            "\xe3\x83\x90\xe3\x83\xbc\xe3\x82\xb8\xe3\x83\xa7\xe3\x83\xb3|"
            "\xe4\xb8\xad\xe5\x9b\xbd\xe8\xaa\x9e\nunknown file version")
      << "a language, or what it leaves behind";
  EXPECT_FALSE(KyrTest::readFile(home.file("output")).contains("Warning"));
}

TEST(Catalogues, OfTheUserComeFirst) {
  const Home home;
  inChild([&] {
    home.start({{"KYR", QString()}});
    const Program program;
    const QString messages = KyrInit::getSoftwareDirectory() + "/messages/";
    QFile::copy(messages + "Kyr_de.qm", home.file("config/Kyr_fr.qm"));
    QFile::copy(messages + "Kyr_de.qm", home.file("config/Kyr"));
    KyrTest::writeFile(home.file("config/Kyr_pt.qm"), "");
    for (const char* language : {"fr", "pt"}) {
      KyrInit::InitTranslator(language);
      home.say(translate("Kyr_Translator", "language: german") + "|");
      KyrInit::CloseTranslator();
    }
    home.start({{"KYR", home.path()}});
    KyrInit::InitTranslator("cn");
    home.say(translate("Kyr_Translator", "language: german") + "|");
    KyrTest::writeFile(home.file("config/App_cn.qm"),
                       QByteArray::fromHex("3cb86418caef9c95cd211cbf60a1bddd960000001000"
                                           "00000c004b00790072005f00660072"));  // goes on in Kyr_fr
    installTranslator("App");
    home.say(QCoreApplication::translate("Kyr_Translator", "language: german"));
    KyrTest::writeFile(home.file("config/Ring_cn.qm"),
                       QByteArray::fromHex("3cb86418caef9c95cd211cbf60a1bddd960000001200"
                                           "00000e00520069006e0067005f0063006e"));  // and in itself
    installTranslator("Ring");
  });
  EXPECT_EQ(home.said(), "Deutsch|Alem\xc3\xa3o|\xe5\xbe\xb7\xe8\xaf\xad|Deutsch")
      << "not the user's; a damaged one; a shorter name, or not beside the library; alone";
  const QByteArray output = KyrTest::readFile(home.file("output")).replace("\r\n", "\n");
  const QByteArray warning = "Warning: Cannot load translator messages for 'Ring'.\n";
  EXPECT_TRUE(output.endsWith(" management\n" + warning)) << output.toStdString();
  EXPECT_TRUE(output.count("Warning") == 1 && output.contains("config/Kyr_pt.qm' is not used"))
      << output.toStdString();
}

TEST(Translate, AnswersManyThreads) {
  constexpr int texts = 5000;
  constexpr int threads = 4;
  Translator translator("en");
  std::vector<int> wrong(threads, texts);
  KyrTest::inThreads(threads, [&](int thread) {
    char text[16] = "";  // the same place for every text
    for (int i = 0; i < 2 * texts; ++i) {
      const QByteArray number = QByteArray::number((i * 7 + thread * 1000) % texts);
      std::copy_n(number.constData(), number.size() + 1, text);
      const QString answer = translator.translate(i % 2 == 0 ? "a" : "b", text);
      wrong[static_cast<std::size_t>(thread)] -= i < texts && answer == text ? 1 : 0;
      wrong[static_cast<std::size_t>(thread)] += i >= texts && answer != text ? 1 : 0;
    }
  });
  EXPECT_EQ(wrong, std::vector<int>(threads, 0));
  EXPECT_EQ(translator.translate("a", "1").constData(), translator.translate("a", "1").constData())
      << "every answer is a text of its own";
}

}  // namespace
