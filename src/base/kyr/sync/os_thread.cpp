#include <kyr/sync/KyrThread.h>

#include <kyr/core/KyrProgError.h>

namespace Kyr {

/// Support matches reports by these numbers; they do not follow edits of this file.
namespace site {
constexpr unsigned Copy = 78, Assign = 86;
}

Thread::Thread(LockGUI_t lock, const char* function, const char* file, unsigned line)
    : Thread(nullptr, lock, function, file, line) {}

Thread::Thread(QObject* parent, LockGUI_t lock, const char* function, const char* file,
               unsigned line)
    : QThread(parent), _function(function), _file(file), _line(line), _lockGui(lock != 0) {
  if constexpr (Platform::threadsAreWatched) {
    // finished() is emitted by the thread itself, after run().
    connect(
        this, &QThread::finished, this, [this] { Platform::orderedBefore(this); },
        Qt::DirectConnection);
  }
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
