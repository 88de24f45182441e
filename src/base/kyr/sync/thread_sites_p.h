/// \file
/// Where the threads that run were made.
#pragma once

#include <cstdint>

namespace Kyr {

/// The creation site of a thread, as its class was given it.
struct ThreadSite {
  const char* function;
  const char* file;
  unsigned line;
};

/// Says that the calling thread has begun to run an object, made at a site, of whose texts 199
/// bytes are kept. Where a thousand threads run, further ones are not noted, nor are those of
/// further sites than 256. \param object whatever is not noted for another thread \threadsafety any
/// thread; without lock and heap
void noteThreadSite(const void* object, const ThreadSite& site) noexcept;
/// Takes the note back; without one for this object nothing happens.
/// \threadsafety as above
void forgetThreadSite(const void* object) noexcept;
/// Looks for the note about a thread. Its texts stay for ever.
/// \param number the system's
/// \return false for a thread without one
/// \threadsafety as above, also in a process that has broken
bool findThreadSite(std::uint64_t number, ThreadSite& site) noexcept;

}  // namespace Kyr
