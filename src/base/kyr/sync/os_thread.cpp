#include <kyr/sync/KyrThread.h>

#include <kyr/core/KyrProgError.h>
#include <kyr/sync/thread_sites_p.h>
#include <kyr/sync/thread_start_p.h>

#include <atomic>

namespace Kyr {

/// Support matches reports by these numbers; they do not follow edits of this file.
namespace site {
constexpr unsigned Copy = 78, Assign = 86;
}

namespace {

std::atomic<void (*)()> startHook{nullptr};

void callStartHook() {
  if (const auto hook = startHook.load()) {
    hook();
  }
}

}  // namespace

void setThreadStartHook(void (*hook)()) noexcept {
  startHook = hook;
}

Thread::Thread(LockGUI_t lock, const char* function, const char* file, unsigned line)
    : Thread(nullptr, lock, function, file, line) {}

Thread::Thread(QObject* parent, LockGUI_t lock, const char* function, const char* file,
               unsigned line)
    : QThread(parent), _function(function), _file(file), _line(line), _lockGui(lock != 0) {
  // started() is emitted by the thread itself, before run(), and finished() after it.
  connect(
      this, &QThread::started, this,
      [this] {
        noteThreadSite(this, {_function, _file, _line});
        callStartHook();
      },
      Qt::DirectConnection);
  connect(
      this, &QThread::finished, this,
      [this] {
        forgetThreadSite(this);
        Platform::orderedBefore(this);
      },
      Qt::DirectConnection);
}

Thread::~Thread() = default;

Thread::Thread(const Thread&) : QThread() {
  throw ProgError("Kyr::Thread::Thread", "os_thread", site::Copy,
                  "Copy-Constructor is not allowed for threads!");
}

Thread& Thread::operator=(const Thread&) {
  throw ProgError("Kyr::Thread::operator =", "os_thread", site::Assign,
                  "assignment operator is not allowed for threads!");
}

}  // namespace Kyr
