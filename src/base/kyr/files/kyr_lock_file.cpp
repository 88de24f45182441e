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

/// A line for what the system has told, none for what it has not: a mark without a line is no sign
/// against its owner.
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
enum Identity_t { Same, Another, Unknown };

/// Compares the start that a mark has with that of the living process. A start that ends in "@" is
/// incomplete: earlier builds wrote it where the system did not tell the rest.
Identity_t compareStart(std::int64_t pid, const QByteArray& start) {
  const QByteArray present = Platform::processStart(pid);
  if (present.isEmpty() || start.isEmpty() || start.endsWith('@')) {
    return Unknown;
  }
  return start == present ? Same : Another;
}

}  // namespace

// A number beyond an int counts as none, as other programs that read lock files take it.
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

// A mark that promises to be kept locked names its machine if the system tells it: without a name
// it may be that of any machine. Marks of earlier builds never have one, and promise nothing.
bool LockFile::isElsewhere(const Mark& mark) {
  const QByteArray machine = valueOf(mark.text, machineKey);
  return isOther(valueOf(mark.text, hostKey), hostName()) ||
         isOther(valueOf(mark.text, spaceKey), Platform::processSpace()) ||
         isOther(machine, Platform::ownMachine()) || (machine.isEmpty() && saysKept(mark.text));
}

bool LockFile::isKept(const Mark& mark) {
  return saysKept(mark.text) && mark.keeping != Free;
}

// An owner that keeps its file locked lives. One that has lost that lock, as by closing all that it
// has open, is known by the start of its process, all others by the number of their process.
bool LockFile::isStale(const Mark& mark) {
  const std::int64_t pid = processOf(mark.text);
  if (isKept(mark) || (pid != 0 && isElsewhere(mark))) {
    return false;
  }
  if (!OS::pidExists(pid)) {
    return true;
  }
  const Identity_t identity = compareStart(pid, valueOf(mark.text, startKey));
  return identity == Another || (identity == Unknown && saysKept(mark.text));
}

}  // namespace Kyr
