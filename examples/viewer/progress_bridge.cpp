#include "progress_bridge.h"

namespace Viewer {

namespace {

using Kyr::Progress;

class ProgressEvent : public Kyr::GUIThreadEvent {
 public:
  explicit ProgressEvent(ProgressBridge& bridge) : _bridge(bridge), _state(Progress::getState()) {}
  void process() override { Q_EMIT _bridge.progressed(_state.overall, _state.text); }

 private:
  ProgressBridge& _bridge;  // outlives the event: Qt drops those of a receiver that dies
  const Progress::State _state;
};

class ProgressEventCreator : public Kyr::GUIThreadEventCreator {
 public:
  explicit ProgressEventCreator(ProgressBridge& bridge) : _bridge(bridge) {}
  Kyr::GUIThreadEvent* createEvent() override { return new ProgressEvent(_bridge); }

 private:
  ProgressBridge& _bridge;
};

}  // namespace

ProgressBridge::ProgressBridge() : _creator(std::make_unique<ProgressEventCreator>(*this)) {
  Progress::registerGUIEventCreator(_creator.get());
  Progress::setEventReceiver(this);
  Progress::setCreateGUIEvents(true);
}

ProgressBridge::~ProgressBridge() {
  Progress::setCreateGUIEvents(false);
  Progress::setEventReceiver(nullptr);
  Progress::deregisterGUIEventCreator(_creator.get());
}

void ProgressBridge::customEvent(QEvent* event) {
  // Only Progress sends this object events of the kinds that applications have for themselves.
  static_cast<Kyr::GUIThreadEvent*>(event)->process();
}

}  // namespace Viewer
