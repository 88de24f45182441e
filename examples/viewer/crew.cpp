#include "crew.h"

#include <kyr/jobs/KyrThreadPool.h>
#include <kyr/os/KyrOS.h>

#include <algorithm>

namespace Viewer {

/// One thread of the crew; does its part of one piece of work in each pass.
class Hand : public Kyr::PoolThread {
 public:
  explicit Hand(unsigned part)
      : PoolThread(NoLockGUI, "Viewer::Hand::Hand", "crew", 1), _part(part) {}

  void begin(const std::function<void(unsigned)>* work) {
    _work = work;
    startWorking();
  }

 protected:
  void work() override { (*_work)(_part); }

 private:
  const unsigned _part;
  const std::function<void(unsigned)>* _work = nullptr;
};

Crew::Crew(unsigned size) {
  constexpr unsigned most = 256;  // threads, where nobody has asked for a number
  const unsigned count = size > 0 ? size : std::min(Kyr::OS::getNumberOfCPUs(), most);
  for (unsigned part = 1; part < count; ++part) {
    auto hand = std::make_unique<Hand>(part);
    hand->start();
    if (!hand->isRunning()) {
      break;  // the system has no more threads
    }
    _hands.push_back(std::move(hand));
  }
}

Crew::~Crew() {
  for (const auto& hand : _hands) {
    hand->prepareExit();
  }
  for (const auto& hand : _hands) {
    hand->wait();
  }
}

void Crew::share(const std::function<void(unsigned)>& work) {
  for (const auto& hand : _hands) {
    hand->begin(&work);
  }
  work(0);
  for (const auto& hand : _hands) {
    hand->waitForWorking();
  }
}

void Crew::shareRange(std::size_t count,
                      const std::function<void(std::size_t, std::size_t)>& work) {
  const std::size_t parts = size();
  share([&](unsigned part) {
    work(count / parts * part, part + 1 == parts ? count : count / parts * (part + 1));
  });
}

}  // namespace Viewer
