#include <kyr/app/program_lines_p.h>

#include <kyr/app/KyrInit.h>
#include <kyr/app/start_p.h>
#include <kyr/core/KyrVersion.h>
#include <kyr/core/forever_p.h>
#include <kyr/crash/crash_handler_p.h>
#include <kyr/diagnostics/report_secrets_p.h>
#include <kyr/i18n/KyrTranslate.h>
#include <kyr/i18n/KyrTranslator.h>

#include <QCoreApplication>
#include <QDir>

#include <algorithm>
#include <new>

namespace Kyr {

namespace {

constexpr int longestCommandLine = 2000;  // bytes of UTF-8
constexpr int longestName = 200;          // characters

/// The text with "~" for the user's home directory, which holds the user's name.
QString withoutHome(QString text, const QString& home) {
  const auto sensitivity = Start::namesIgnoreCase() ? Qt::CaseInsensitive : Qt::CaseSensitive;
  if (home.size() <= 1) {
    return text;
  }
  for (const QString& folder : {home, QDir::toNativeSeparators(home)}) {
    for (const char* const separator : {"/", "\\"}) {
      text.replace(folder + separator, QString("~") + separator, sensitivity);
    }
  }
  return QDir::fromNativeSeparators(text).compare(home, sensitivity) == 0 ? QString("~") : text;
}

/// The text in a line of its own.
QString visible(QString text) {
  std::replace_if(
      text.begin(), text.end(), [](QChar each) { return each < QChar(' ') || each == QChar(0x7f); },
      '?');
  return text;
}

QByteArray commandLine(const QStringList& arguments, const QString& home) {
  QStringList shown;
  for (const QString& each : Report::blankArguments(arguments)) {
    shown += withoutHome(each, home);
  }
  QString line = visible(shown.join(' ')).left(longestCommandLine);
  while (line.toUtf8().size() > longestCommandLine) {
    line.chop(1);
  }
  return line.toUtf8();
}

/// A start does not fail for its description: a search for secrets gives up at odd arguments.
QByteArray commandLineIfKnown(const QStringList& arguments, const QString& home) {
  try {
    return commandLine(arguments, home);
  } catch (const std::bad_alloc&) {
    return {};
  }
}

constexpr const char* context = "Kyr_crash";
constexpr const char* withDump =
    QT_TRANSLATE_NOOP("Kyr_crash", "%1 has crashed. The report is %2, the dump is %3.");
constexpr const char* withoutDump =
    QT_TRANSLATE_NOOP("Kyr_crash", "%1 has crashed. The report is %2; there is no dump.");

/// Stands for the path of the dump, which is put in when there is one.
constexpr QChar dumpMark(1);

QString& reportFile() {
  static Forever<QString> path;
  return path.object;
}

/// A sentence with the program and the report in it, and the mark in the place of the dump.
QString sentence(const char* text) {
  const bool isTranslated = Translator::instance() != nullptr;
  const QString name = isTranslated ? KyrInit::getTranslatedApplicationName()
                                    : QString::fromUtf8(KyrInit::getApplicationName());
  const QString words = isTranslated ? translate(context, text) : QString::fromUtf8(text);
  return QString(words)
      .replace("%3", QString(dumpMark))
      .arg(visible(name.left(longestName)), visible(QDir::toNativeSeparators(reportFile())));
}

}  // namespace

void Start::setReportFile(const QString& path) {
  reportFile() = path;
}

void Start::prepareNotice() {
  const QString whole = sentence(withDump);
  const auto dump = whole.indexOf(dumpMark);
  const QByteArray before = whole.left(dump).toUtf8();
  const QByteArray behind = dump < 0 ? QByteArray() : whole.mid(dump + 1).toUtf8();
  const QByteArray without = sentence(withoutDump).toUtf8();
  Crash::setNotice({before.constData(), behind.constData(), without.constData()});
}

void Start::describeProgram(const QStringList& arguments) {
  const QString home = QDir::homePath();
  const QString name = QString::fromUtf8(KyrInit::getApplicationName()).left(longestName);
  const QString version = KyrInit::getApplicationVersion().left(longestName);
  const QByteArray line = commandLineIfKnown(arguments, home);
  QByteArray lines = "program: " + visible(name).toUtf8() +
                     "\nversion: " + visible(version).toUtf8() + "\nlibrary: libKyr " +
                     libraryVersion() + '\n';
  lines += line.isEmpty() ? line : "command line: " + line + '\n';
  Crash::describeProgram(lines.constData(), home.toUtf8().constData(), namesIgnoreCase());
}

}  // namespace Kyr
