#include <kyr/files/live_files_p.h>

#include <kyr/core/forever_p.h>
#include <kyr/sync/KyrMutex.h>

#include <chrono>
#include <system_error>
#include <thread>

namespace Kyr {

namespace {

Forever<Mutex> listLock("Kyr::SafeFile::SafeFile", "kyr_live_files", 14);
Mutex& list = listLock.object;
LiveFile* first KYR_GUARDED_BY(list) = nullptr;

}  // namespace

LiveFile::LiveFile(const std::filesystem::path& name) : _name(name) {
  const AutoMutex lock(&list);
  _next = first;
  first = this;
}

LiveFile::~LiveFile() {
  const AutoMutex lock(&list);
  LiveFile** place = &first;
  while (*place != this) {
    place = &(*place)->_next;
  }
  *place = _next;
}

// The lock stays: it is what lets nobody begin another file, or take away a name that is used here.
void LiveFile::removeAllForEnd() noexcept KYR_NO_THREAD_SAFETY_ANALYSIS {
  using Clock = std::chrono::steady_clock;
  list.lock();
  const Clock::time_point patience = Clock::now() + std::chrono::milliseconds(100);
  for (const LiveFile* file = first; file; file = file->_next) {
    while (!file->_isTried && Clock::now() < patience) {
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    std::error_code ignored;
    std::filesystem::remove(file->_name, ignored);
  }
}

void LiveFile::stayIfEnding() {
  const AutoMutex lock(&list);
}

}  // namespace Kyr
