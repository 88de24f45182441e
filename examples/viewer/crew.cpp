#include "crew.h"

#include <kyr/jobs/KyrThreadPool.h>

#include <QThread>

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
  const unsigned count =
      size > 0 ? size : static_cast<unsigned>(std::max(1, QThread::idealThreadCount()));
  for (unsigned part = 0; part < count; ++part) {
    _hands.push_back(std::make_unique<Hand>(part));
    _hands.back()->start();
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
