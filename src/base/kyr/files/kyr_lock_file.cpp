#include <kyr/files/lock_file_p.h>
#include <kyr/os/KyrOS.h>
#include <kyr/os/os_process_p.h>

#include <QSysInfo>

namespace Kyr {

namespace {

constexpr const char* startKey = "start ";
constexpr const char* hostKey = "host ";
constexpr const char* spaceKey = "space ";
constexpr const char* machineKey = "machine ";
constexpr const char* keptKey = "kept ";

QByteArray hostName() {
  return QSysInfo::machineHostName().toUtf8();
}

/// The rest of the line that begins with \a key; empty when there is none.
QByteArray valueOf(const QByteArray& text, const char* key) {
  for (const QByteArray& line : text.split('\n')) {
    if (line.startsWith(key)) {
      return line.mid(static_cast<int>(qstrlen(key)));
    }
  }
  return {};
}

/// A line for what the system has told; what is missing does not count against the owner.
QByteArray lineFor(const char* key, const QByteArray& value) {
  return value.isEmpty() ? QByteArray() : key + value + '\n';
}

bool saysKept(const QByteArray& text) {
  return !valueOf(text, keptKey).isEmpty();
}

bool isOther(const QByteArray& value, const QByteArray& own) {
  return !value.isEmpty() && value != own;
}

/// How a process that lives compares with the one that wrote a mark.
enum Identity { Same, Another, Unknown };

/// Builds of this library have written "ticks@" when they could not read what belongs behind it.
Identity compareStart(std::int64_t pid, const QByteArray& start) {
  const QByteArray present = Platform::processStart(pid);
  if (present.isEmpty() || start.isEmpty() || start.endsWith('@')) {
    return Unknown;
  }
  return start == present ? Same : Another;
}

}  // namespace

// A number beyond an int is no number, as for the readers of other programs.
std::int64_t LockFile::processOf(const QByteArray& bytes) {
  const QByteArray text = bytes.trimmed();
  int length = text.startsWith('-') || text.startsWith('+') ? 1 : 0;
  while (length < text.size() && text[length] >= '0' && text[length] <= '9') {
    ++length;
  }
  return text.left(length).toInt();  // 0 on failure
}

QByteArray LockFile::ownText(bool isKept) {
  return QByteArray::number(OS::getPID()) + '\n' + lineFor(startKey, Platform::ownStart()) +
         lineFor(hostKey, hostName()) + lineFor(spaceKey, Platform::processSpace()) +
         lineFor(machineKey, Platform::ownMachine()) + lineFor(keptKey, isKept ? "yes" : "");
}

LockOwner LockFile::ownerIn(const QByteArray& text) {
  return {processOf(text), QString::fromUtf8(valueOf(text, startKey)),
          QString::fromUtf8(valueOf(text, hostKey))};
}

// Whoever keeps its file locked names its machine if it can: without that name it may be any. Marks
// of earlier builds never have it.
bool LockFile::isElsewhere(const Mark& mark) {
  const QByteArray machine = valueOf(mark.text, machineKey);
  return isOther(valueOf(mark.text, hostKey), hostName()) ||
         isOther(valueOf(mark.text, spaceKey), Platform::processSpace()) ||
         isOther(machine, Platform::ownMachine()) || (machine.isEmpty() && saysKept(mark.text));
}

bool LockFile::isKept(const Mark& mark) {
  return saysKept(mark.text) && mark.keeping != Free;
}

// Who keeps its file locked lives. An owner that has lost that lock, as by closing all that it has
// open, is known by its start. All others are judged by their number.
bool LockFile::isStale(const Mark& mark) {
  const std::int64_t pid = processOf(mark.text);
  if (isKept(mark) || (pid != 0 && isElsewhere(mark))) {
    return false;
  }
  if (!OS::pidExists(pid)) {
    return true;
  }
  const Identity identity = compareStart(pid, valueOf(mark.text, startKey));
  return identity == Another || (identity == Unknown && saysKept(mark.text));
}

}  // namespace Kyr
