/// \file
/// How the long steps of the examples stop when the user asks them to.
#pragma once

#include <kyr/core/KyrException.h>

#include <cstddef>

namespace Surface {

/// Thrown by a step that met the abort flag of Kyr::Progress. No fault: catch it before
/// Kyr::Exception and say that the user stopped the program.
class Aborted : public Kyr::Exception {
 public:
  Aborted();
};

/// Ends a step when the user wants that; cheap enough for every few thousand elements of a loop.
/// \throws Aborted when the flag is set
void stopIfAborted();

/// Calls action(0), action(1), ..., action(count - 1) and looks at the abort flag now and then.
/// \throws Aborted when the flag is set
template <class Action>
void forEachIndex(std::size_t count, Action action) {
  constexpr std::size_t between = 4096;
  for (std::size_t index = 0; index < count; ++index) {
    if (index % between == 0) {
      stopIfAborted();
    }
    action(index);
  }
}

}  // namespace Surface
