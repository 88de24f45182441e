/// \file
/// A system that has no more threads.
#pragma once

#include <atomic>

namespace KyrTest {

/// While it is true, no thread can be started.
extern std::atomic<bool> threadsAreOut;

}  // namespace KyrTest
