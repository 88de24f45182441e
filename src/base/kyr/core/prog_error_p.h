/// \file
/// What a dying process needs of other rooms and of the platform.
#pragma once

#include <cstddef>

namespace Kyr::Fatal {

/// Sets what releases the shared-memory segments of this process. Called when the first
/// segment is born, so that this room need not know the class that owns them.
/// \param release must not allocate or lock; null takes it back
void setSharedMemoryRelease(void (*release)()) noexcept;

/// Releases them. Waits for a lock, a second at most.
void releaseSharedMemory() noexcept;

/// Calls the application's fatal-error hook, unless the hook itself is what failed.
void callHook() noexcept;

// Platform files define these.

/// Writes bytes to the descriptor of the C runtime's standard error stream, past its buffer;
/// failures are ignored.
void writeToStandardError(const char* bytes, std::size_t length) noexcept;

/// Ends the process at once with a code: no destructors, no exit handlers.
[[noreturn]] void endProcess(int code) noexcept;

/// Whether the calling thread runs the hook. Each thread has its own answer: a second thread that
/// fails meanwhile runs the hook itself, so that the process never dies before the hook has once
/// come to its end. Uses no heap.
bool isInsideHook() noexcept;
void setInsideHook(bool inside) noexcept;

}  // namespace Kyr::Fatal
