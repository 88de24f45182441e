#include <kyr/app/program_lines_p.h>

#include <kyr/app/KyrInit.h>
#include <kyr/core/KyrVersion.h>
#include <kyr/crash/crash_handler_p.h>
#include <kyr/diagnostics/report_secrets_p.h>

#include <QDir>

#include <algorithm>
#include <new>

namespace Kyr {

namespace {

constexpr int longestCommandLine = 2000;  // bytes of UTF-8
constexpr int longestName = 200;          // characters

/// The text with "~" for the user's home directory, which holds the user's name.
QString withoutHome(QString text, const QString& home) {
  if (home.size() <= 1) {
    return text;
  }
  for (const QString& folder : {home, QDir::toNativeSeparators(home)}) {
    for (const char* const separator : {"/", "\\"}) {
      text.replace(folder + separator, QString("~") + separator);
    }
  }
  return text == home || text == QDir::toNativeSeparators(home) ? QString("~") : text;
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

}  // namespace

void Start::describeProgram(const QStringList& arguments) {
  const QString home = QDir::homePath();
  const QString name = QString::fromUtf8(KyrInit::getApplicationName()).left(longestName);
  const QString version = KyrInit::getApplicationVersion().left(longestName);
  const QByteArray line = commandLineIfKnown(arguments, home);
  QByteArray lines = "program: " + visible(name + ' ' + version).toUtf8() + "\nlibrary: libKyr " +
                     libraryVersion() + '\n';
  lines += line.isEmpty() ? line : "command line: " + line + '\n';
  Crash::describeProgram(lines.constData(), home.toUtf8().constData());
}

}  // namespace Kyr
