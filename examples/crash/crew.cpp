#include "crew.h"

#include <utility>

namespace Crash {

Worker::Worker(std::function<void()> work)
    : Thread(NoLockGUI, "Crash::Worker::Worker", "crew", 10), _work(std::move(work)) {}

void Worker::run() {
  _work();
}

Crew::Crew(int size)
    : _mutex("Crash::Crew::Crew", "crew", 18), _changed("Crash::Crew::Crew", "crew", 18, &_mutex) {
  for (int i = 0; i < size; ++i) {
    _workers.push_back(std::make_unique<Worker>([this] { waitForWork(); }));
    _workers.back()->start();
  }
  const Kyr::AutoMutex lock(&_mutex);
  while (_waiting < size) {
    _changed.wait();
  }
}

void Crew::waitForWork() {
  const Kyr::AutoMutex lock(&_mutex);
  ++_waiting;
  _changed.broadcast();
  while (true) {
    _changed.wait();
  }
}

}  // namespace Crash
