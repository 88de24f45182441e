/// \file
/// What becomes of journals when the process ends.
#pragma once

namespace Kyr::Journals {

/// Hands the entries of all journals to the system, without memory and without a lock; waits at
/// most a tenth of a second for a thread that is writing. From here on entries are written one by
/// one. For the crash handler and the exit of the process; further calls write what came late.
void flushForEnd() noexcept;

}  // namespace Kyr::Journals
