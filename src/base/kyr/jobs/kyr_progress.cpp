#include <kyr/jobs/KyrProgress.h>

#include <kyr/core/KyrProgError.h>
#include <kyr/core/forever_p.h>
#include <kyr/jobs/KyrGUIThreadEvent.h>
#include <kyr/sync/site_lock_p.h>

#include <QCoreApplication>

#include <algorithm>
#include <cstdint>

namespace Kyr {

/// Support matches reports by these numbers; they do not follow edits of this file.
namespace site {
constexpr const char* File = "kyr_progress";
constexpr unsigned ProgressMutex = 41, SplitMutex = 42, AbortMutex = 43, EventMutex = 44;
constexpr unsigned Reset = 87, WrongRange = 117, WrongValue = 120, SetProgress = 131,
                   SetString = 182, Value = 200, Min = 214, Max = 228, String = 241, SplitOff = 268,
                   WrongSplit = 277, Split = 288, AddSteps = 307, SetAbort = 320, GetAbort = 333,
                   SetCreate = 354, IsCreate = 370, Register = 387, Deregister = 409, Destroy = 426,
                   SetReceiver = 442, Create = 465, Overall = 481, GetState = 494;
}  // namespace site

namespace {

constexpr double textPause = 0.2;  // seconds

bool isNoRange(int min, int max) {
  return min == -1 || max == -1;
}

bool isRange(int min, int max) {
  return 0 <= min && min <= max && max <= 100;
}

/// Writes only what is new: the release of a lock waits until every write has left the processor,
/// and most reports of progress change one number.
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
std::vector<GUIThreadEventCreator*>& Progress::_event_creators = creatorsRoom.object;

unsigned Progress::getProgress() {
  const SiteLock locked(_mutex_progress, "Kyr::Progress::getProgress", site::File, site::Value);
  return _value;
}

int Progress::getProgressMin() {
  const SiteLock locked(_mutex_progress, "Kyr::Progress::getProgressMin", site::File, site::Min);
  return _min;
}

int Progress::getProgressMax() {
  const SiteLock locked(_mutex_progress, "Kyr::Progress::getProgressMax", site::File, site::Max);
  return _max;
}

QString Progress::getProgressString() {
  const SiteLock locked(_mutex_progress, "Kyr::Progress::getProgressString", site::File,
                        site::String);
  return _text;
}

int Progress::getOverallProgress() {
  const SiteLock locked(_mutex_progress, "Kyr::Progress::getOverallProgress", site::File,
                        site::Overall);
  return _overall;
}

Progress::State Progress::getState() {
  const SiteLock locked(_mutex_progress, "Kyr::Progress::getState", site::File, site::GetState);
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
  const int overall = min + (max - min) * static_cast<int>(value) / 100;
  _mutex_progress.lock();
  update(_min, min);
  update(_max, max);
  update(_value, value);
  const bool changed = update(_overall, overall);
  _mutex_progress.unlock(function, site::File, site::SetProgress);
  if (changed) {
    createGUIEvents();
  }
}

void Progress::setProgressString(const QString& text, bool force) {
  bool changed = false;
  {
    const SiteLock locked(_mutex_progress, "Kyr::Progress::setProgressString", site::File,
                          site::SetString);
    if (text != _text) {
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
    const SiteLock locked(_mutex_progress, "Kyr::Progress::reset", site::File, site::Reset);
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
  constexpr const char* function = "Kyr::Progress::splitProgress";
  if (isNoRange(min, max)) {
    const SiteLock locked(_split_mutex, function, site::File, site::SplitOff);
    _split_min = -1;
    _split_max = -1;
    return;
  }
  if (!isRange(min, max)) {
    throw ProgError(function, site::File, site::WrongSplit, "invalid progress range");
  }
  const SiteLock locked(_split_mutex, function, site::File, site::Split);
  _split_min = min;
  _split_max = max;
  _split_steps = std::max(steps, 1U);
  _steps_done = 0;
  setProgress(min, max, 0);
}

void Progress::addProgressSteps(unsigned steps) {
  const SiteLock locked(_split_mutex, "Kyr::Progress::addProgressSteps", site::File,
                        site::AddSteps);
  // In 64 bits, because a wrapped sum or product would move the bar back.
  const std::uint64_t done = std::uint64_t{_steps_done} + steps;
  _steps_done = static_cast<unsigned>(std::min<std::uint64_t>(done, _split_steps - 1));
  const auto percentage = static_cast<unsigned>(std::uint64_t{_steps_done} * 100 / _split_steps);
  // Still under the lock, so that a thread with fewer steps cannot come after one with more.
  setProgress(_split_min, _split_max, percentage);
}

void Progress::setAbortFlag(bool abort) {
  const SiteLock locked(_abort_mutex, "Kyr::Progress::setAbortFlag", site::File, site::SetAbort);
  _abort = abort;
}

bool Progress::getAbortFlag() {
  const SiteLock locked(_abort_mutex, "Kyr::Progress::getAbortFlag", site::File, site::GetAbort);
  return _abort;
}

void Progress::setCreateGUIEvents(bool on) {
  const SiteLock locked(_event_mutex, "Kyr::Progress::setCreateGUIEvents", site::File,
                        site::SetCreate);
  _create_events = on ? _create_events + 1 : std::max(_create_events - 1, 0);
}

bool Progress::isCreateGUIEventAllowed() {
  const SiteLock locked(_event_mutex, "Kyr::Progress::isCreateGUIEventAllowed", site::File,
                        site::IsCreate);
  return _create_events > 0;
}

void Progress::setEventReceiver(QObject* receiver) {
  const SiteLock locked(_event_mutex, "Kyr::Progress::setEventReceiver", site::File,
                        site::SetReceiver);
  _event_receiver = receiver;
}

void Progress::registerGUIEventCreator(GUIThreadEventCreator* creator) {
  const SiteLock locked(_event_mutex, "Kyr::Progress::registerGUIEventCreator", site::File,
                        site::Register);
  _event_creators.push_back(creator);
}

void Progress::deregisterGUIEventCreator(GUIThreadEventCreator* creator) {
  const SiteLock locked(_event_mutex, "Kyr::Progress::deregisterGUIEventCreator", site::File,
                        site::Deregister);
  const auto found = std::find(_event_creators.begin(), _event_creators.end(), creator);
  if (found != _event_creators.end()) {
    _event_creators.erase(found);
  }
}

void Progress::destroyGUIEventCreators() {
  const SiteLock locked(_event_mutex, "Kyr::Progress::destroyGUIEventCreators", site::File,
                        site::Destroy);
  for (const GUIThreadEventCreator* creator : _event_creators) {
    delete creator;
  }
  _event_creators.clear();
}

void Progress::createGUIEvents() {
  const SiteLock locked(_event_mutex, "Kyr::Progress::createGUIEvents", site::File, site::Create);
  if (_create_events <= 0 || !_event_receiver) {
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
