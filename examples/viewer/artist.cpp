#include "artist.h"

#include <utility>

namespace Viewer {

Artist::Artist(std::function<void(std::shared_ptr<Picture>)> deliver)
    : PoolThread(NoLockGUI, "Viewer::Artist::Artist", "artist", 1), _deliver(std::move(deliver)) {
  start();
}

Artist::~Artist() {
  _cancelled = true;
  prepareExit();
  wait();
}

void Artist::begin(const Order& order) {
  waitForWorking();  // the delivery comes a moment before the end of the pass
  _order = order;
  _order.cancelled = &_cancelled;
  _cancelled = false;
  if (isRunning()) {
    startWorking();
  } else {
    work();
  }
}

void Artist::cancel() {
  _cancelled = true;
  waitForWorking();
}

void Artist::work() {
  auto picture = std::make_shared<Picture>(_renderer.draw(_order));
  if (!_cancelled) {
    _deliver(std::move(picture));
  }
}

}  // namespace Viewer
