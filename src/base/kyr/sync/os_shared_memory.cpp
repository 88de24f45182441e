#include <kyr/sync/KyrSharedMemory.h>

#include <kyr/core/forever_p.h>
#include <kyr/core/prog_error_p.h>
#include <kyr/sync/shared_memory_p.h>

#include <cstring>

namespace Kyr {

/// Support matches reports by these numbers; they do not follow edits of this file.
namespace site {
constexpr unsigned Registry = 36, Enter = 64, Release = 121, Assign = 134, Leave = 150,
                   FreeAll = 184;
constexpr const char* File = "os_shared_memory";
}  // namespace site

namespace {

constexpr int created = -1;
/// Long enough for whoever changes the list; a dying process must not hang.
constexpr int longestWait = 1000;

Forever<Mutex> lockRoom("Kyr::SharedMemory", site::File, site::Registry);

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
    : _size(other._size),
      _id(other._id),
      _data(other._data),
      _reserved(other._reserved),
      _block(other._block) {
  enter();
}

SharedMemory& SharedMemory::operator=(const SharedMemory& other) {
  std::shared_ptr<SharedBlock> block = other._block;
  _m_shm_obj.lock();
  _block.swap(block);  // the old one ends after the lock
  _m_shm_obj.unlock("Kyr::SharedMemory::operator =", site::File, site::Assign);
  _size = other._size;
  _id = other._id;
  _data = other._data;
  _reserved = other._reserved;
  return *this;
}

SharedMemory::~SharedMemory() {
  leave();
}

void SharedMemory::enter() {
  Fatal::setSharedMemoryRelease(&SharedMemory::freeSharedMemoryResources);
  _m_shm_obj.lock();
  _next = _first;
  if (_next) {
    _next->_previous = this;
  }
  _first = this;
  _m_shm_obj.unlock("Kyr::SharedMemory::SharedMemory", site::File, site::Enter);
}

void SharedMemory::leave() {
  _m_shm_obj.lock();
  if (_next) {
    _next->_previous = _previous;
  }
  (_previous ? _previous->_next : _first) = _next;
  _m_shm_obj.unlock("Kyr::SharedMemory::~SharedMemory", site::File, site::Leave);
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
  std::shared_ptr<SharedBlock> block;
  _m_shm_obj.lock();
  _block.swap(block);
  _m_shm_obj.unlock("Kyr::SharedMemory::releaseResources", site::File, site::Release);
  _data = nullptr;
}

void SharedMemory::freeSharedMemoryResources() {
  if (!_m_shm_obj.tryLock(longestWait)) {
    return;
  }
  for (SharedMemory* object = _first; object; object = object->_next) {
    if (object->_block) {
      object->_block->removeName();
    }
  }
  _m_shm_obj.unlock("Kyr::SharedMemory::freeSharedMemoryResources", site::File, site::FreeAll);
}

}  // namespace Kyr
