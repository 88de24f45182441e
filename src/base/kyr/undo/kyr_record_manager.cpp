#include <kyr/undo/KyrRecordManager.h>

#include <kyr/core/KyrProgError.h>
#include <kyr/core/forever_p.h>

namespace Kyr {

/// Support matches reports by these numbers; they do not follow edits of this file.
namespace site {
constexpr unsigned Manager = 23, Registry = 61;
constexpr const char* File = "kyr_record_manager";
}  // namespace site

namespace {

using Instances = std::set<StructRecordVectorBase*>;

Forever<Mutex> lockRoom("Kyr::StructRecordVectorBase", site::File, site::Registry);

/// Made by the first container, which may come before any constructor of this file.
Instances* newInstances() {
  static Forever<Instances> room;
  return &room.object;
}

}  // namespace

RecordManagerBase* RecordManagerBase::_manager_base = nullptr;
std::uint32_t RecordManagerBase::_next_record_id = 0;

RecordManagerBase::RecordManagerBase() {
  if (_manager_base) {
    throw ProgError("Kyr::RecordManagerBase::RecordManagerBase", site::File, site::Manager,
                    "only one manager allowed");
  }
  _manager_base = this;
}

RecordManagerBase::~RecordManagerBase() = default;

bool RecordManagerBase::isRecording() const {
  return false;
}

void RecordManagerBase::clearAll() {}

bool RecordManagerBase::isUndoRedoAllowed() const {
  return false;
}

bool RecordManagerBase::undo() {
  return false;
}

bool RecordManagerBase::redo() {
  return false;
}

Mutex& StructRecordVectorBase::_lock = lockRoom.object;
Instances* StructRecordVectorBase::_instances = nullptr;

StructRecordVectorBase::StructRecordVectorBase() {
  // Allocates before it locks: without memory, the handlers that are called then may well free
  // recorded containers.
  Instances entry{this};
  const AutoMutex locked(&_lock);
  if (!_instances) {
    _instances = newInstances();
  }
  _instances->merge(entry);
}

StructRecordVectorBase::~StructRecordVectorBase() {
  const AutoMutex locked(&_lock);
  if (_instances) {  // null if there were only copies
    _instances->erase(this);
  }
}

void StructRecordVectorBase::resetAllRecordingModes() {
  const AutoMutex locked(&_lock);
  if (_instances) {
    for (StructRecordVectorBase* const instance : *_instances) {
      instance->resetRecordingMode();
    }
  }
}

}  // namespace Kyr
