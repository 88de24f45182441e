#include <kyr/sync/KyrSharedMemory.h>

#include <kyr/core/forever_p.h>
#include <kyr/core/prog_error_p.h>
#include <kyr/sync/shared_memory_p.h>

#include <cstring>

namespace Kyr {

/// Support matches reports by these numbers; they do not follow edits of this file.
namespace site {
constexpr unsigned Registry = 36;
}

namespace {

constexpr int created = -1;
/// In milliseconds. Long enough for whoever changes the list; a dying process must not hang.
constexpr int longestWait = 1000;

Forever<Mutex> lockRoom("Kyr::SharedMemory", "os_shared_memory", site::Registry);

}  // namespace

Mutex& SharedMemory::_m_shm_obj = lockRoom.object;
SharedMemory* SharedMemory::_first = nullptr;

SharedMemory::SharedMemory(unsigned size) : SharedMemory(size, created) {}

SharedMemory::SharedMemory(unsigned size, int id) : _size(size), _id(id) {
  _block = id == created ? SharedBlock::create(size) : SharedBlock::attach(size, id);
  _id = _block->id();
  _data = _block->data();
  enter();
}

SharedMemory::SharedMemory(const SharedMemory& other)
    : _size(other._size), _id(other._id), _data(other._data), _block(other._block) {
  enter();
}

SharedMemory& SharedMemory::operator=(const SharedMemory& other) {
  std::shared_ptr<SharedBlock> block = other._block;
  {
    const AutoMutex lock(&_m_shm_obj);
    _block.swap(block);  // the old block ends when the mutex is free again
  }
  _size = other._size;
  _id = other._id;
  _data = other._data;
  return *this;
}

SharedMemory::~SharedMemory() {
  leave();
}

void SharedMemory::enter() {
  Fatal::setSharedMemoryRelease(&SharedMemory::freeSharedMemoryResources);
  const AutoMutex lock(&_m_shm_obj);
  _next = _first;
  if (_next) {
    _next->_previous = this;
  }
  _first = this;
}

void SharedMemory::leave() {
  const AutoMutex lock(&_m_shm_obj);
  if (_next) {
    _next->_previous = _previous;
  }
  (_previous ? _previous->_next : _first) = _next;
}

bool SharedMemory::copyTo(const void* source, unsigned n) {
  if (n > _size || (n > 0 && !_data)) {
    return false;
  }
  if (n > 0) {
    std::memcpy(_data, source, n);
  }
  return true;
}

bool SharedMemory::copyFrom(void* target, unsigned n) const {
  if (n > _size || (n > 0 && !_data)) {
    return false;
  }
  if (n > 0) {
    std::memcpy(target, _data, n);
  }
  return true;
}

void SharedMemory::releaseResources() {
  std::shared_ptr<SharedBlock> block;  // ends when the mutex is free again
  const AutoMutex lock(&_m_shm_obj);
  _block.swap(block);
  _data = nullptr;
}

void SharedMemory::freeSharedMemoryResources() {
  if (!_m_shm_obj.tryLock(longestWait)) {
    return;
  }
  const AutoMutex lock(&_m_shm_obj, AutoMutex::Taken);
  for (SharedMemory* object = _first; object; object = object->_next) {
    if (object->_block) {
      object->_block->removeName();
    }
  }
}

}  // namespace Kyr
