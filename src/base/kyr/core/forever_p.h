/// \file
/// Static objects that are never destroyed.
#pragma once

#include <utility>

namespace Kyr {

/// Room for one static object that lives until the process is gone.
///
/// At the exit of a process static objects end while its other threads still run, and before the
/// static objects of libraries and programs that were loaded earlier. Whatever any of them may
/// use then stands in such a room: locks, registries, texts. Its address is known before any
/// constructor has run, so that references to it need none; a \a Kept with a constexpr
/// constructor is itself there from the first instruction on.
/// \code
/// Forever<Mutex> lockRoom("Kyr::Time::lock", site::File, site::Lock);
/// Mutex& Time::lock = lockRoom.object;
/// \endcode
template <class Kept>
union Forever {
  /// Builds the object as \a Kept does from \a arguments.
  template <class... Arguments>
  constexpr explicit Forever(Arguments&&... arguments)
      : object(std::forward<Arguments>(arguments)...) {}
  Forever(const Forever&) = delete;
  Forever& operator=(const Forever&) = delete;
  ~Forever() {}  // leaves the object alone

  Kept object;
};

}  // namespace Kyr
