#include <kyr/diagnostics/KyrCrashReports.h>

#include <kyr/core/KyrException.h>
#include <kyr/core/forever_p.h>
#include <kyr/diagnostics/report_p.h>
#include <kyr/env/settings_p.h>
#include <kyr/files/KyrSafeFile.h>
#include <kyr/os/KyrOS.h>

#include <QDateTime>
#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <cstring>

namespace Kyr {

namespace {

constexpr std::size_t mostFiles = 100;
constexpr std::int64_t mostOfFile = 512 << 10;  // bytes
constexpr int mostSeen = 100;
constexpr std::int64_t mostOfSeen = 64 << 10;  // bytes
constexpr int longestFault = 1000;             // characters

constexpr const char* firstWords = "caught exception: ";
constexpr const char* aboutWords = "\n\n\nabout this crash:\n";
constexpr const char* lastWords = "\nmodules of the backtraces:\n";

/// A file of output.
struct Output {
  QString path;
  std::int64_t process;  ///< 0 when its name does not tell
  std::int64_t modified;
};

/// The files of output in the temporary directory, the newest first.
std::vector<Output> ownOutputs() {
  static const Forever<QRegularExpression> pattern(
      Report::expression(R"(\AORV-(\d{1,10})\.log\z)"));
  const QDir folder(OS::convertSeparatorsToUnix(OS::getTempDirectory()));
  QStringList names;
  OS::readDirectory(folder.path(), &names);
  std::vector<Output> found;
  for (const QString& name : names) {
    const QRegularExpressionMatch match = Report::search(pattern.object, name);
    OS::FileStatus status;
    if (match.hasMatch() && OS::stat(folder.filePath(name), &status) && status.isFile) {
      found.push_back(
          {folder.filePath(name), match.captured(1).toLongLong(), status.modified / 1000});
    }
  }
  std::stable_sort(found.begin(), found.end(), [](const Output& left, const Output& right) {
    return left.modified > right.modified;
  });
  found.resize(std::min(found.size(), mostFiles));
  return found;
}

/// All files of output, with the one that the environment names.
std::vector<Output> outputs() {
  constexpr int prefix = 5;
  std::vector<Output> found = ownOutputs();
  const QString console = OS::getEnv("KYR_CONSOLE");
  if (console.startsWith("file:") && console.size() > prefix) {
    found.push_back({QFileInfo(console.mid(prefix)).absoluteFilePath(), 0, 0});
  }
  return found;
}

/// The value of a line of the section about the crash; empty without one.
QString valueOf(const QString& section, const char* key) {
  const QString begin = QString("\n%1: ").arg(key);
  const auto at = section.indexOf(begin);
  return at < 0 ? QString() : section.mid(at + begin.size()).section('\n', 0, 0);
}

/// A report that has come to its end, or nearly so.
CrashReport wholeReport(const QString& text, QString::size_type about) {
  const QString rest = text.mid(about);
  const QString section = rest.section("\n\n", 0, 0, QString::SectionSkipEmpty);
  CrashReport report;
  report.application = valueOf(section, "program");
  report.version = valueOf(section, "version");
  report.fault = valueOf(section, "fault").left(longestFault);
  report.dump = valueOf(section, "dump");
  report.process = valueOf(section, "process").toLongLong();
  const QDateTime time = QDateTime::fromString(valueOf(section, "time"), Qt::ISODate);
  report.seconds = time.isValid() ? time.toSecsSinceEpoch() : 0;
  report.isWhole = rest.contains(lastWords);
  return report;
}

/// The beginning of a report, of a process that did not get further. Who wrote it stands in the
/// first line of its own file.
CrashReport brokenReport(const QString& text, QString::size_type first, const Output& output) {
  static const Forever<QRegularExpression> greeting(
      Report::expression(R"(\A([^\n]+) \S+ Rev\. \S+ Build \S+: System memory management\n)"));
  CrashReport report;
  report.application =
      output.process != 0 ? Report::search(greeting.object, text).captured(1) : QString();
  report.fault =
      text.mid(first + int(std::strlen(firstWords))).section('\n', 0, 0).left(longestFault);
  report.process = output.process;
  return report;
}

/// Where the last line of a report that begins with these words stands; negative for nowhere.
QString::size_type lastBeginning(const QString& text) {
  const auto at = text.lastIndexOf(QString('\n') + firstWords);
  return at >= 0 ? at + 1 : text.startsWith(firstWords) ? 0 : -1;
}

/// What the age of a report is told by. A time that is still to come, of a clock that was set
/// wrong, says nothing of it, and must not hide what came later for ever.
std::int64_t rankOf(const CrashReport& report) {
  constexpr std::int64_t leeway = 60;  // seconds by which clocks are set back every day
  return report.seconds > QDateTime::currentSecsSinceEpoch() + leeway ? 0 : report.seconds;
}

/// Whether there is the dump that a report names. A program may print what looks like a report and
/// names any file, which nobody should be asked to send.
bool isDump(const CrashReport& report) {
  OS::FileStatus status;
  return QFileInfo(report.dump).fileName() == QString("ORV-%1.dmp").arg(report.process) &&
         OS::stat(report.dump, &status) && status.isFile;
}

std::optional<CrashReport> reportIn(const Output& output) {
  Report::OwnFile file;
  if (Report::readOwnFile(output.path, mostOfFile, file) != Report::Reading_t::Done) {
    return {};
  }
  const QString text = QString::fromUtf8(file.end).remove('\r');
  const auto about = text.lastIndexOf(aboutWords);
  const auto first = lastBeginning(text);
  if (about < 0 && first < 0) {
    return {};
  }
  CrashReport report = about > first ? wholeReport(text, about) : brokenReport(text, first, output);
  if (!report.isWhole && output.process != 0 && OS::pidExists(output.process)) {
    return {};  // is being written
  }
  report.path = output.path;
  report.seconds = report.seconds != 0 ? report.seconds : file.modified;
  report.dump = isDump(report) ? report.dump : QString();
  return report;
}

// ---- what has been seen -------------------------------------------------------------------------

QString seenFile() {
  const QString folder = Settings::isSettled() ? Settings::settled().config.nonRoaming
                                               : Settings::configDirectories().nonRoaming;
  return folder + "/crashes-seen.txt";
}

/// The notes about reports, the oldest first.
QStringList seenNotes() {
  Report::OwnFile file;
  const bool isRead = Report::readOwnFile(seenFile(), mostOfSeen, file) == Report::Reading_t::Done;
  return isRead ? QString::fromUtf8(file.end).split('\n', Qt::SkipEmptyParts) : QStringList();
}

QString noteOf(const CrashReport& report) {
  return QString("%1 %2").arg(report.process).arg(report.seconds);
}

}  // namespace

std::optional<CrashReport> CrashReports::newest(const QString& application) {
  std::optional<CrashReport> newest;
  for (const Output& output : outputs()) {
    std::optional<CrashReport> report = reportIn(output);
    const bool isMeant = report && (application.isEmpty() || report->application == application);
    if (isMeant && (!newest || rankOf(*report) > rankOf(*newest))) {
      newest = std::move(report);
    }
  }
  if (newest) {
    newest->isSeen = seenNotes().contains(noteOf(*newest));
  }
  return newest;
}

void CrashReports::acknowledge(const CrashReport& report) {
  QStringList notes = seenNotes();
  notes.removeAll(noteOf(report));
  notes += noteOf(report);
  const QString name = seenFile();
  OS::makeDirectory(QFileInfo(name).path(), true);
  SafeFile file(name);
  file.stream() << notes.mid(std::max(0, int(notes.size()) - mostSeen)).join('\n').toStdString()
                << '\n';
  file.commit();
}

}  // namespace Kyr
