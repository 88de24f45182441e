/// \file
/// How much memory the process uses, and who wants to know.
#pragma once

#include <kyr/core/KyrPlatform.h>

#include <cstdint>
#include <functional>
#include <vector>

namespace Kyr {

/// Sizes in bytes at one moment; 0 for what the system does not tell.
/// \threadsafety a value
struct MemoryUse {
  std::uint64_t resident = 0;          ///< what the process has in memory
  std::uint64_t peakResident = 0;      ///< the most that it ever had
  std::uint64_t systemTotal = 0;       ///< what the machine has
  std::uint64_t systemAvailable = 0;   ///< what it can still give without swapping
  std::uint64_t addressTotal = 0;      ///< what the process can address; 0 on 64-bit systems, which
                                       ///< have enough of it
  std::uint64_t addressAvailable = 0;  ///< what of that is free; 0 where addressTotal is
  /// For later versions.
  std::uintptr_t spare[4] = {};
};

/// Calls back when memory runs short, so that an application drops caches or warns the user
/// before an allocation fails.
///
/// Somebody has to call poll(), for instance from a timer or between two steps of a computation:
/// there is no thread behind this. A threshold calls back once when it is crossed, and again only
/// after the quantity has gone back by more than a sixteenth of the threshold: a value that
/// wavers around it does not call each time.
/// \code
/// MemoryObserver observer;
/// const auto warn = [](const MemoryUse& use) { std::cerr << use.systemAvailable << " left\n"; };
/// observer.watch(MemoryObserver::SystemLeft, 500000000, warn);
/// observer.poll();  // now and then
/// \endcode
/// \threadsafety one thread at a time per object; the static members any thread
class KYR_EXPORT MemoryObserver {
 public:
  /// What a threshold is about. For a quantity that the system does not tell nothing is called.
  enum Quantity_t : int {
    ProcessSize = 0,       ///< MemoryUse::resident reaches the threshold or more
    SystemLeft = 1,        ///< MemoryUse::systemAvailable falls to the threshold or less
    AddressSpaceLeft = 2,  ///< MemoryUse::addressAvailable falls to the threshold or less
  };
  /// Gets what poll() has measured, and runs on its thread.
  using Callback = std::function<void(const MemoryUse&)>;
  /// Measures in the place of measure(), on the thread of poll().
  using Source = std::function<MemoryUse()>;

  /// Watches what measure() tells; nothing until watch() is called.
  MemoryObserver();
  /// \param source measures in the place of measure(), for instance for a container with limits
  ///        of its own; not empty
  explicit MemoryObserver(Source source);
  MemoryObserver(const MemoryObserver&) = delete;
  MemoryObserver& operator=(const MemoryObserver&) = delete;
  ~MemoryObserver();

  /// Adds a threshold. If it has been crossed already, the next poll() calls back.
  /// \param threshold in bytes
  /// \param callback not empty; may call every member of this object, poll() too, as timers do
  ///        while it shows a message, but must not end the object
  /// \return the number for forget(); never 0
  unsigned watch(Quantity_t quantity, std::uint64_t threshold, Callback callback);
  /// Removes a threshold; its callback may do that itself.
  /// \throws ProgError "Unknown watch"
  void forget(unsigned watch);

  /// Measures, and calls back for what has been crossed since the last time, in the order of
  /// watch().
  /// \return what was measured, before the callbacks
  /// \throws what a callback throws; those behind it are called by the next poll()
  MemoryUse poll();

  /// Asks the system.
  static MemoryUse measure();
  /// Asks the registered NewHandlers for memory as a failing operator new does: in their order,
  /// until one has released something. For callbacks that give memory back before an
  /// allocation fails.
  /// \return whether one did, or the handler returned that the process had before the library
  /// \throws what they throw, but for std::bad_alloc
  static bool freeMemory();

 private:
  struct Watch {
    unsigned number;
    Quantity_t quantity;
    std::uint64_t threshold;
    Callback callback;
    bool armed;  ///< would call back
  };
  KYR_HIDDEN std::vector<Watch>::iterator find(unsigned number);
  KYR_HIDDEN void callBack(unsigned number, const MemoryUse& use);

  Source _source;
  std::vector<Watch> _watches;
  unsigned _lastNumber = 0;
  // What later versions need besides.
  [[maybe_unused]] void* _more = nullptr;
};

}  // namespace Kyr
