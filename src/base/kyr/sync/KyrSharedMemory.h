/// \file
/// Memory that several processes see at once.
#pragma once

#include <kyr/core/KyrPlatform.h>
#include <kyr/sync/KyrMutex.h>

#include <memory>

namespace Kyr {

class SharedBlock;

/// A block of memory shared with other processes of the same user, found there by its number.
///
/// The process that creates a block gives it its number and keeps the number alive: it ends with
/// the last object of that process that has the block, with a ProgError, or, after a crash, when
/// another process creates its first block. Who is attached by then keeps the memory. Nothing
/// here orders what the processes read and write; that is for them to agree on.
///
/// \code
/// const SharedMemory shared(sizeof room);  // its number goes to the other process
/// SharedMemory theirs(sizeof room, shared.getId());
/// theirs.copyTo(room, sizeof room);
/// \endcode
///
/// On Windows there is no such memory: the constructors raise ProgError "Not implemented for
/// Windows".
/// \threadsafety one thread per object; the contents are unguarded
class KYR_EXPORT SharedMemory {
 public:
  /// Creates a block of zeros.
  /// \param size in bytes; all of it is set aside at once
  /// \throws Exception when the system has not that much
  explicit SharedMemory(unsigned size);
  /// Attaches to the block of another process.
  /// \param size in bytes, at most that of the block
  /// \param id as getId() gave it there; -1 creates a block instead
  /// \throws Exception when there is no such block, it is smaller or belongs to another user
  SharedMemory(unsigned size, int id);
  /// Shares the block of \a other; the memory goes with the last of them.
  SharedMemory(const SharedMemory& other);
  SharedMemory& operator=(const SharedMemory& other);
  ~SharedMemory();

  /// Copies \a n bytes to the start of the block.
  /// \return false, and nothing is copied, when that is beyond its size or the block was released
  bool copyTo(const void* source, unsigned n);
  /// Copies \a n bytes from the start of the block.
  /// \return as copyTo()
  bool copyFrom(void* target, unsigned n) const;

  /// In bytes; stays when the block is released.
  unsigned getSize() const { return _size; }
  /// The start of the block; null when it was released.
  void* getDataPointer() const { return _data; }
  /// What other processes attach by; stays when the block is released.
  int getId() const { return _id; }

  /// Lets the block go before the object's end. The number ends where this object, or the last
  /// copy of it, created the block.
  void releaseResources();

  /// Ends the numbers of all blocks that this process has created, so that a dying process
  /// leaves nothing behind. Its objects keep their memory, which other threads may be using.
  /// \threadsafety any thread; uses no heap, and gives up rather than wait longer than a second
  static void freeSharedMemoryResources();

 private:
  KYR_HIDDEN void enter();
  KYR_HIDDEN void leave();

  unsigned _size;
  int _id;
  void* _data = nullptr;
  std::shared_ptr<SharedBlock> _block;  // changed under _m_shm_obj, read there by others

  // The registry: a list through the objects, as it must not need the heap. Its lock is never
  // destroyed.
  KYR_HIDDEN static Mutex& _m_shm_obj;
  KYR_HIDDEN static SharedMemory* _first KYR_GUARDED_BY(_m_shm_obj);
  SharedMemory* _previous = nullptr;
  SharedMemory* _next = nullptr;
};

}  // namespace Kyr
