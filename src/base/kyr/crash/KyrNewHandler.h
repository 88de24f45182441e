/// \file
/// Objects that give memory back when an allocation fails.
#pragma once

#include <kyr/core/KyrPlatform.h>
#include <kyr/sync/KyrMutex.h>

#include <new>
#include <vector>

namespace Kyr {

/// Holds memory that it can do without, as a cache does, and gives it back when operator new
/// finds none. Neither its construction nor its end registers or deregisters it.
///
/// From KyrInit::InitLibrary() on, a failing operator new asks the registered objects in the
/// order of their registration, until one has released something, and tries again.
/// \code
/// class Pictures : public NewHandler {
///  public:
///   Pictures() { registerThisNewHandler(); }
///   ~Pictures() override { deregisterThisNewHandler(); }
///   bool freeSomeMemory() override { return std::exchange(_bytes, {}).capacity() > 0; }
///
///  private:
///   std::vector<char> _bytes = std::vector<char>(1000000);
/// };
/// \endcode
/// \threadsafety as each function says; freeSomeMemory() is called on any thread, one at a time
class KYR_EXPORT NewHandler {
 public:
  virtual ~NewHandler();

  /// Releases memory that can be made again. Called on the thread whose allocation failed, with
  /// the register locked: it must not register or deregister anything, nor wait for a thread
  /// that does. An allocation that fails in here throws at once.
  /// \return whether it released something
  virtual bool freeSomeMemory() = 0;

  /// Puts the object at the end of the register; a second time if it stands there already.
  /// \throws std::bad_alloc
  /// \threadsafety any thread
  void registerThisNewHandler();
  /// Takes the object out of the register, however often it stands there. Waits while another
  /// thread frees memory; afterwards nobody calls the object any more.
  /// \throws ProgError "Unknown handler" when it is not registered
  /// \threadsafety any thread
  void deregisterThisNewHandler();

  /// What operator new calls when an allocation fails. Returns when it is worth another try:
  /// when an object released memory or, if none did or another thread holds the register, when
  /// the handler has returned that the process had before the library.
  /// \throws std::bad_alloc where there is no such handler, and as that handler or an object does
  /// \threadsafety any thread; never waits for the register
  static void freeMemory();

 protected:
  NewHandler() = default;
  NewHandler(const NewHandler&) = default;
  NewHandler& operator=(const NewHandler&) = default;

 private:
  friend class KyrInit;
  /// Makes freeMemory() the process's handler; a second call changes nothing.
  KYR_HIDDEN static void install() noexcept;
  KYR_HIDDEN static void addHandler(NewHandler* handler);
  KYR_HIDDEN static void removeHandler(NewHandler* handler);
  KYR_HIDDEN static bool askHandlers() KYR_REQUIRES(_lock);
  KYR_HIDDEN static bool askHandlersUnlessLocked();

  // References to what is never destroyed: allocations fail until the very end of a process.
  KYR_HIDDEN static Mutex& _lock;
  KYR_HIDDEN static std::vector<NewHandler*>& _new_handler KYR_GUARDED_BY(_lock);
  KYR_HIDDEN static std::new_handler _system_new_handler;  // set before other threads exist
};

}  // namespace Kyr
