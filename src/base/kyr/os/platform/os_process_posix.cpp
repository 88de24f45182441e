#include <kyr/os/KyrOS.h>
#include <kyr/os/os_process_p.h>
#include <kyr/os/os_reason_p.h>

#include <QProcess>
#include <QSysInfo>

#include <cerrno>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <limits>
#include <string>

namespace Kyr {

namespace {

constexpr const char* bootIdentifier = "/proc/sys/kernel/random/boot_id";
constexpr const char* systemIdentifier = "/etc/machine-id";

QByteArray firstLine(const std::string& file) {
  std::ifstream stream(file, std::ios_base::binary);
  std::string line;
  std::getline(stream, line);
  return QByteArray::fromStdString(line);
}

/// The fields of a process behind its name, which may hold blanks and brackets; the first is its
/// state. Empty where the system has no such file.
QList<QByteArray> fieldsOf(std::int64_t pid) {
  const QByteArray line = firstLine("/proc/" + std::to_string(pid) + "/stat");
  const auto nameEnd = line.lastIndexOf(") ");
  return nameEnd < 0 ? QList<QByteArray>() : line.mid(nameEnd + 2).split(' ');
}

bool isPid(std::int64_t pid) {
  return pid > 0 && pid <= std::numeric_limits<pid_t>::max();
}

}  // namespace

bool OS::pidExists(std::int64_t pid) {
  if (!isPid(pid) || (::kill(static_cast<pid_t>(pid), 0) != 0 && errno != EPERM)) {
    return false;
  }
  const QByteArray state = fieldsOf(pid).value(0);
  return state != "Z" && state != "X";  // ended, though its parent has not asked for it yet
}

// The ticks between the starts of the system and of the process, and which start of the system it
// was: setting the clock changes neither.
QByteArray Platform::processStart(std::int64_t pid) {
  constexpr int startField = 19;
  const QByteArray ticks = fieldsOf(pid).value(startField);
  const QByteArray boot = firstLine(bootIdentifier);
  return ticks.isEmpty() || boot.isEmpty() ? QByteArray() : ticks + '@' + boot;
}

QByteArray Platform::processSpace() {
  std::error_code error;
  const std::string space = std::filesystem::read_symlink("/proc/self/ns/pid", error).native();
  const bool isUntold = error && error != std::errc::no_such_file_or_directory;
  return isUntold ? "untold:" + QByteArray::number(OS::getPID()) : QByteArray::fromStdString(space);
}

// QSysInfo asks another service, which is not everywhere. Many containers have no identifier, an
// empty file for it, or the word of an image that was never started. The number of the system's
// last start takes its place: no other machine has it, though the next start brings a new one.
QByteArray Platform::machineIdentifier() {
  const QByteArray text = firstLine(systemIdentifier);
  const bool isUnset = text == "uninitialized";
  const QByteArray identifier = text.isEmpty() || isUnset ? QSysInfo::machineUniqueId() : text;
  OS::FileStatus status;
  const bool isMissing = !OS::stat(systemIdentifier, &status) || status.size == 0;
  return identifier.isEmpty() && (isMissing || isUnset) ? firstLine(bootIdentifier) : identifier;
}

void Platform::showOnDesktop(const QString& target) {
  const QString opener = OS::findExecutable("xdg-open");
  if (opener.isEmpty()) {
    fail("cannot open %1", target, "there is no desktop: the program xdg-open is missing");
  }
  QProcess process;
  process.setProgram(opener);
  process.setArguments({target});
  process.setStandardInputFile(QProcess::nullDevice());
  process.setStandardOutputFile(QProcess::nullDevice());
  process.setStandardErrorFile(QProcess::nullDevice());
  if (!process.startDetached()) {
    fail("cannot open %1", target, "the program xdg-open cannot be started");
  }
}

}  // namespace Kyr
