// A child process that is watched, or killed, at its system calls.
#pragma once

#include <functional>
#include <string>

namespace KyrTest {

/// What was seen of the child.
struct Traced {
  bool isPossible = true;  ///< false where the system lets nobody trace its child
  bool wasKilled = false;
  int code = -1;      ///< with which it has ended by itself
  std::string calls;  ///< a letter for each write of over 1000 bytes, fsync, rename and getdents
};

/// Runs \a action in a child.
/// \param calls kills it when it has begun or ended system calls so often
Traced trace(const std::function<void()>& action, int calls);

}  // namespace KyrTest
