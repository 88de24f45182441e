/// \file
/// What wants to know of every thread that starts, without this room knowing it.
#pragma once

namespace Kyr {

/// Sets what each thread of the suite calls when it starts, before it runs.
/// \param hook must not throw; null takes it back
void setThreadStartHook(void (*hook)()) noexcept;

}  // namespace Kyr
