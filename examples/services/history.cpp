/// \file
/// How an application tells the users of its scripts which commands a version brought.
///
///   history >page.html

#include <kyr/changelog/KyrChangeLog.h>

#include <cstdio>

namespace {

using Kyr::ChangeLog::Log;
using Version = Kyr::ChangeLog::VersionNumber;

/// Makes entries: their functions are for derived classes.
struct Command : Kyr::ChangeLog::LogEntry {
  using LogEntry::elementCreated, LogEntry::elementRemoved, LogEntry::elementRenamed,
      LogEntry::elementSemantics;
};

Log commandsOfThePackage(const Version& version) {
  Log log;
  log.addEntry(Command::elementCreated("mesh", version, "mesh.smooth", "Leaves sharp edges alone."))
      .addEntry(Command::elementRenamed("mesh", version, "mesh.cut", "mesh.cut_plane"))
      .addEntry(Command::elementSemantics("report", version, "report.width <mm>"))
      .addEntry(Command::elementRemoved("report", version, "report.old_style"));
  return log;
}

}  // namespace

int main() {
  Log log;
  log.addEntry(Command::elementCreated("mesh", Version::version610(3), "mesh.cut"));
  log.addLog(commandsOfThePackage(Version::fromString("v6.2.0-6")));
  const QByteArray page = log.transformToPage("Commands", Log::ByVersion).toUtf8();
  const auto size = static_cast<std::size_t>(page.size());
  if (std::fwrite(page.constData(), 1, size, stdout) != size || std::fflush(stdout) != 0) {
    std::perror("history: cannot write the page");
    return 1;
  }
  return 0;
}
