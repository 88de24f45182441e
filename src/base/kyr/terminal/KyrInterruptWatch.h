/// \file
/// The user's wish that a program in a terminal should end.
#pragma once

#include <kyr/core/KyrPlatform.h>
#include <kyr/jobs/KyrStopToken.h>

#include <memory>

namespace Kyr {

/// Turns the wish to end the program into a stop of its work, which then ends by itself and leaves
/// nothing half done. The wish is Ctrl-C, SIGTERM or a terminal that closes; on Windows Ctrl-C,
/// Ctrl-Break, a console that closes, and the end of the session.
///
/// A second wish ends the process at once, as the first one would without a watch. The temporary
/// files of every SafeFile and of an archive that is being extracted are removed then; the files
/// that they were to replace stay as they were. What the process ignored before, as SIGINT below
/// nohup, it ignores still.
/// \code
/// int run() {
///   const Kyr::InterruptWatch watch;
///   try {
///     work();  // looks with Kyr::throwIfStopped()
///     return 0;
///   } catch (const Kyr::Stopped&) {
///     return 130;  // what shells expect after Ctrl-C
///   }
/// }
/// \endcode
///
/// One for a process, for as long as it has work to do that can be stopped.
/// \threadsafety one thread makes and ends it; wasInterrupted() on any thread
class KYR_EXPORT InterruptWatch {
 public:
  /// \param token stopped by the first wish, on a thread of the watch or of the system; with that
  ///        of Progress the abort flag is set
  /// \throws ProgError "a second interrupt watch"
  /// \threadsafety one thread at a time
  explicit InterruptWatch(const StopToken& token = StopToken::ofProgress());
  /// Waits for callbacks of the token that run; then wishes end the process again. A wish that came
  /// just before counts.
  ~InterruptWatch();
  InterruptWatch(const InterruptWatch&) = delete;
  InterruptWatch& operator=(const InterruptWatch&) = delete;

  /// Whether the wish came while this object lived.
  /// \threadsafety any thread
  bool wasInterrupted() const noexcept;

 private:
  struct KYR_HIDDEN Implementation;

  const std::unique_ptr<Implementation> _implementation;
};

}  // namespace Kyr
