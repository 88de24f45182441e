#include <kyr/diagnostics/memory_use_p.h>

#include <kyr/text/KyrParse.h>

#include <QFile>

#include <sys/resource.h>

namespace Kyr {

namespace {

/// The text of one of the kernel's files, which have no size before they are read.
QByteArray readSystemFile(const char* name) {
  QFile file(name);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// The number behind a name at the start of a line, in bytes; 0 without such a line.
std::uint64_t field(const QByteArray& text, const char* name) {
  const QByteArray start = QByteArray("\n") + name + ":";
  const auto at = ("\n" + text).indexOf(start);
  const QByteArray rest = at < 0 ? QByteArray() : text.mid(at + start.size() - 1, 40);
  int end = 0;
  return qstringToUInt64(QString::fromLatin1(rest), nullptr, 10, &end) * 1024;
}

}  // namespace

// A limit of the address space, which is rare, counts as the 4 GiB of 32-bit systems do.
MemoryUse Platform::measureMemory() {
  const QByteArray process = readSystemFile("/proc/self/status");
  const QByteArray system = readSystemFile("/proc/meminfo");
  MemoryUse use;
  use.resident = field(process, "VmRSS");
  use.peakResident = field(process, "VmHWM");
  use.systemTotal = field(system, "MemTotal");
  use.systemAvailable = field(system, "MemAvailable");
  rlimit limit{};
  if (::getrlimit(RLIMIT_AS, &limit) == 0 && limit.rlim_cur != RLIM_INFINITY) {
    const std::uint64_t used = field(process, "VmSize");
    use.addressTotal = limit.rlim_cur;
    use.addressAvailable = used < limit.rlim_cur ? limit.rlim_cur - used : 0;
  }
  return use;
}

}  // namespace Kyr
