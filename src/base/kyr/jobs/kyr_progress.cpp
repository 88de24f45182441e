#include <kyr/jobs/KyrProgress.h>

#include <kyr/core/KyrProgError.h>
#include <kyr/core/forever_p.h>
#include <kyr/jobs/KyrGUIThreadEvent.h>
#include <kyr/jobs/KyrStopToken.h>
#include <kyr/recorder/KyrFlightRecorder.h>

#include <QCoreApplication>

#include <algorithm>
#include <cstdint>

namespace Kyr {

/// Support matches reports by these numbers; they do not follow edits of this file.
namespace site {
constexpr const char* File = "kyr_progress";
constexpr unsigned ProgressMutex = 41, SplitMutex = 42, AbortMutex = 43, EventMutex = 44;
constexpr unsigned WrongRange = 117, WrongValue = 120, WrongSplit = 277;
}  // namespace site

namespace {

constexpr double textPause = 0.2;  // seconds

bool isNoRange(int min, int max) {
  return min == -1 || max == -1;
}

bool isRange(int min, int max) {
  return 0 <= min && min <= max && max <= 100;
}

/// Stores a number if it is new. The release of a lock waits until every write has left the
/// processor, and most reports of progress change one number only.
/// \return whether it is new
template <class Number>
bool update(Number& stored, Number given) {
  const bool isNew = stored != given;
  if (isNew) {
    stored = given;
  }
  return isNew;
}

unsigned bound(int a, int b, unsigned parts, unsigned part) {
  const auto first = static_cast<unsigned>(a);
  return (static_cast<unsigned>(b) - first) * part / parts + first;
}

Forever<Mutex> progressLock("Kyr::Progress::_mutex_progress", site::File, site::ProgressMutex);
Forever<Mutex> splitLock("Kyr::Progress::_split_mutex", site::File, site::SplitMutex);
Forever<Mutex> abortLock("Kyr::Progress::_abort_mutex", site::File, site::AbortMutex);
Forever<Mutex> eventLock("Kyr::Progress::_event_mutex", site::File, site::EventMutex);
Forever<QString> textRoom;
Forever<std::vector<GUIThreadEventCreator*>> creatorsRoom;

}  // namespace

Mutex& Progress::_mutex_progress = progressLock.object;
Mutex& Progress::_split_mutex = splitLock.object;
Mutex& Progress::_abort_mutex = abortLock.object;
Mutex& Progress::_event_mutex = eventLock.object;

unsigned Progress::_value = 0;
int Progress::_min = -1;
int Progress::_max = -1;
int Progress::_overall = -1;
QString& Progress::_text = textRoom.object;
bool Progress::_text_time_set = false;
Time Progress::_text_time;

int Progress::_split_min = -1;
int Progress::_split_max = -1;
unsigned Progress::_split_steps = 1;
unsigned Progress::_steps_done = 0;

bool Progress::_abort = false;

int Progress::_create_events = 0;
QObject* Progress::_event_receiver = nullptr;
std::atomic<bool> Progress::_makes_events{false};
std::vector<GUIThreadEventCreator*>& Progress::_event_creators = creatorsRoom.object;

unsigned Progress::getProgress() {
  const AutoMutex locked(&_mutex_progress);
  return _value;
}

int Progress::getProgressMin() {
  const AutoMutex locked(&_mutex_progress);
  return _min;
}

int Progress::getProgressMax() {
  const AutoMutex locked(&_mutex_progress);
  return _max;
}

QString Progress::getProgressString() {
  const AutoMutex locked(&_mutex_progress);
  return _text;
}

int Progress::getOverallProgress() {
  const AutoMutex locked(&_mutex_progress);
  return _overall;
}

Progress::State Progress::getState() {
  const AutoMutex locked(&_mutex_progress);
  return {_value, _min, _max, _overall, _text};
}

void Progress::setProgress(int min, int max, unsigned value) {
  constexpr const char* function = "Kyr::Progress::setProgress";
  if (isNoRange(min, max)) {
    return;
  }
  if (!isRange(min, max)) {
    throw ProgError(function, site::File, site::WrongRange, "invalid progress range");
  }
  if (value > 100) {
    throw ProgError(function, site::File, site::WrongValue, "invalid progress value");
  }
  AutoMutex locked(&_mutex_progress);
  const bool changed = store(min, max, value);
  locked.unlock();
  if (changed) {
    createGUIEvents();
  }
}

bool Progress::store(int min, int max, unsigned value) {
  update(_min, min);
  update(_max, max);
  update(_value, value);
  return update(_overall, min + (max - min) * static_cast<int>(value) / 100);
}

void Progress::setProgressString(const QString& text, bool force) {
  bool changed = false;
  {
    const AutoMutex locked(&_mutex_progress);
    if (text != _text) {
      FlightRecorder::note("progress", text);
      const bool mayWait = _text_time_set && !text.isEmpty() && !_text.isEmpty() && !force;
      const Time now = Time::currentTime();
      changed = !mayWait || now.absoluteDifference(_text_time).getSeconds() >= textPause;
      if (changed) {
        _text_time = now;
        _text_time_set = true;
      }
    }
    _text = text;
  }
  if (changed) {
    createGUIEvents();
  }
}

void Progress::reset() {
  bool changed = false;
  {
    const AutoMutex locked(&_mutex_progress);
    changed = _value != 0 || !_text.isEmpty();
    _value = 0;
    _min = 0;
    _max = 100;
    _overall = 0;
    _text.clear();
  }
  if (changed) {
    createGUIEvents();
  }
}

void Progress::splitProgress(int min, int max, unsigned steps) {
  if (isNoRange(min, max)) {
    const AutoMutex locked(&_split_mutex);
    _split_min = -1;
    _split_max = -1;
    return;
  }
  if (!isRange(min, max)) {
    throw ProgError("Kyr::Progress::splitProgress", site::File, site::WrongSplit,
                    "invalid progress range");
  }
  const AutoMutex locked(&_split_mutex);
  _split_min = min;
  _split_max = max;
  _split_steps = std::max(steps, 1U);
  _steps_done = 0;
  setProgress(min, max, 0);
}

void Progress::addProgressSteps(unsigned steps) {
  const AutoMutex locked(&_split_mutex);
  // Computed in 64 bits, because a wrapped sum or product would move the bar back.
  const std::uint64_t done = std::uint64_t{_steps_done} + steps;
  _steps_done = static_cast<unsigned>(std::min<std::uint64_t>(done, _split_steps - 1));
  const auto percentage = static_cast<unsigned>(std::uint64_t{_steps_done} * 100 / _split_steps);
  // Called under the lock, so that a thread with fewer steps cannot come after one with more.
  setProgress(_split_min, _split_max, percentage);
}

void Progress::setAbortFlag(bool abort) {
  {
    const AutoMutex locked(&_abort_mutex);
    _abort = abort;
    StopToken::markOfProgress(abort);
  }
  if (abort) {
    StopToken::callOfProgress();
  }
}

bool Progress::getAbortFlag() {
  const AutoMutex locked(&_abort_mutex);
  return _abort;
}

void Progress::setCreateGUIEvents(bool on) {
  const AutoMutex locked(&_event_mutex);
  _create_events = on ? _create_events + 1 : std::max(_create_events - 1, 0);
  settleEvents();
}

bool Progress::isCreateGUIEventAllowed() {
  const AutoMutex locked(&_event_mutex);
  return _create_events > 0;
}

void Progress::setEventReceiver(QObject* receiver) {
  const AutoMutex locked(&_event_mutex);
  _event_receiver = receiver;
  settleEvents();
}

void Progress::registerGUIEventCreator(GUIThreadEventCreator* creator) {
  const AutoMutex locked(&_event_mutex);
  _event_creators.push_back(creator);
}

void Progress::deregisterGUIEventCreator(GUIThreadEventCreator* creator) {
  const AutoMutex locked(&_event_mutex);
  const auto found = std::find(_event_creators.begin(), _event_creators.end(), creator);
  if (found != _event_creators.end()) {
    _event_creators.erase(found);
  }
}

void Progress::destroyGUIEventCreators() {
  const AutoMutex locked(&_event_mutex);
  for (const GUIThreadEventCreator* creator : _event_creators) {
    delete creator;
  }
  _event_creators.clear();
}

void Progress::settleEvents() {
  _makes_events = _create_events > 0 && _event_receiver;
}

void Progress::createGUIEvents() {
  if (!_makes_events) {
    return;  // as most programs without a window; the lock would cost them as much as the report
  }
  const AutoMutex locked(&_event_mutex);
  if (!_makes_events) {
    return;
  }
  for (GUIThreadEventCreator* creator : _event_creators) {
    if (GUIThreadEvent* event = creator->createEvent()) {
      QCoreApplication::postEvent(_event_receiver, event);
    }
  }
}

int Progress::min(int a, int b, unsigned n, unsigned i) {
  return static_cast<int>(bound(a, b, n, i));
}

int Progress::max(int a, int b, unsigned n, unsigned i) {
  return static_cast<int>(bound(a, b, n, i + 1));
}

}  // namespace Kyr
