#include <kyr/os/KyrOS.h>
#include <kyr/os/os_process_p.h>
#include <kyr/os/os_reason_p.h>

#include <QDir>
#include <QSysInfo>

#include <limits>
#include <string>

#include <shlobj.h>
#include <windows.h>

namespace Kyr {

namespace {

/// A process's handle that closes itself; null when there is no such process or it is another
/// user's.
class ProcessHandle {
 public:
  explicit ProcessHandle(std::int64_t pid)
      : _handle(::OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION | SYNCHRONIZE, FALSE,
                              static_cast<DWORD>(pid))) {}
  ProcessHandle(const ProcessHandle&) = delete;
  ProcessHandle& operator=(const ProcessHandle&) = delete;
  ~ProcessHandle() {
    if (_handle) {
      ::CloseHandle(_handle);
    }
  }
  HANDLE handle() const { return _handle; }

 private:
  HANDLE _handle;
};

}  // namespace

// A process that cannot be opened may exist all the same, as when memory is short: only one reason
// says that there is none.
bool OS::pidExists(std::int64_t pid) {
  if (pid <= 0 || pid > std::numeric_limits<DWORD>::max()) {
    return false;
  }
  const ProcessHandle process(pid);
  return process.handle() ? ::WaitForSingleObject(process.handle(), 0) != WAIT_OBJECT_0
                          : ::GetLastError() != ERROR_INVALID_PARAMETER;
}

QByteArray Platform::processStart(std::int64_t pid) {
  const ProcessHandle process(pid);
  FILETIME start{};
  FILETIME unused{};
  if (!process.handle() ||
      !::GetProcessTimes(process.handle(), &start, &unused, &unused, &unused)) {
    return {};
  }
  return QByteArray::number(quint64(start.dwHighDateTime) << 32 | start.dwLowDateTime);
}

QByteArray Platform::processSpace() {
  return {};
}

// A system that was set up without an identifier goes by its name alone.
QByteArray Platform::machineIdentifier() {
  const QByteArray identifier = QSysInfo::machineUniqueId();
  return identifier.isEmpty() ? QByteArray("none") : identifier;
}

void Platform::showOnDesktop(const QString& target) {
  const QString native =
      target.contains(':') && target.indexOf(':') > 1 ? target : QDir::toNativeSeparators(target);
  const std::wstring text = native.toStdWString();
  SHELLEXECUTEINFOW info{};
  info.cbSize = sizeof info;
  info.fMask = SEE_MASK_NOASYNC | SEE_MASK_FLAG_NO_UI;
  info.lpFile = text.c_str();
  info.nShow = SW_SHOWNORMAL;
  if (::ShellExecuteExW(&info)) {
    return;
  }
  if (::GetLastError() == ERROR_NO_ASSOCIATION) {
    fail("cannot open %1", target, "no program is set for such documents");
  }
  fail("cannot open %1", target);
}

}  // namespace Kyr
