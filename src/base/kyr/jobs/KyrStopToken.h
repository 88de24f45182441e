/// \file
/// How long work learns that it is to stop.
#pragma once

#include <kyr/core/KyrException.h>
#include <kyr/core/KyrPlatform.h>

#include <functional>
#include <memory>

namespace Kyr {

/// Thrown by work that met a stop. No fault: catch it before Exception, and say that the work was
/// stopped.
/// \threadsafety as Exception
class KYR_EXPORT Stopped : public Exception {
 public:
  /// With the message "stopped".
  Stopped();
  Stopped(const Stopped&) = default;
  Stopped& operator=(const Stopped&) = default;
  ~Stopped() override;
};

/// What work looks at to see whether it is to stop, whoever wants that: the user with the abort
/// flag of Progress, a JobManager that is interrupted, or a part of the program with stop().
///
/// Copies are the same token. A child is stopped with its parent, and may be stopped without it.
/// Deep inside of some work nobody hands a token over: current() is that of the work around.
/// \code
/// std::size_t sum(const std::vector<std::size_t>& numbers) {
///   std::size_t total = 0;
///   for (const std::size_t number : numbers) {
///     Kyr::throwIfStopped();  // by whoever started this work
///     total += number;
///   }
///   return total;
/// }
///
/// bool sumForAMoment(const std::vector<std::size_t>& numbers, std::size_t& total) {
///   const Kyr::StopToken stop = Kyr::StopToken::current().child();
///   const Kyr::StopScope scope(stop);
///   const Kyr::StopCallback button(stop, [] { greyOutTheButton(); });
///   whenPressed([stop] { stop.stop(); });  // on any thread
///   try {
///     total = sum(numbers);
///     return true;
///   } catch (const Kyr::Stopped&) {
///     return false;
///   }
/// }
/// \endcode
/// \threadsafety any thread for every function; two threads do not assign to one object
class KYR_EXPORT StopToken {
 public:
  /// A token of its own, which only its stop() stops.
  StopToken();
  /// That of the process: stopped while the abort flag of Progress is set. Its children stay
  /// stopped when the flag is taken back: the work that they stand for was told.
  static StopToken ofProgress();
  /// That of the innermost StopScope on this thread, of the JobManager whose job runs on it, or of
  /// the parallelFor() whose body does; otherwise ofProgress().
  static StopToken current();
  /// A new token that is stopped when this one is.
  StopToken child() const;

  /// Stops this token and all below it, and calls their callbacks, on this thread. Stopped before,
  /// it does nothing. Of ofProgress() it sets the abort flag.
  void stop() const noexcept;
  /// One look; cheap enough for every few elements of a loop.
  bool isStopped() const noexcept;
  /// One look.
  /// \throws Stopped when the token is stopped
  void throwIfStopped() const;

  /// The longest time that a thread with a ProgressScope went on without a look.
  struct Pause {
    double seconds = 0;  ///< how long it was; 0 when nothing was measured
    /// Name of the scope in which most of that time was spent; null when nothing was measured.
    const char* scope = nullptr;
  };
  /// Measures pauses from here on, or no longer; forgets what was measured. On from the start in
  /// libraries that were built for debugging. A look then costs a look at the clock.
  static void measurePauses(bool on);
  /// The longest pause that was measured, of all threads.
  static Pause longestPause();

 private:
  friend class Progress;
  friend class JobManager;
  friend class StopCallback;
  struct KYR_HIDDEN State;

  explicit StopToken(std::shared_ptr<State> state);
  /// What Progress tells under its lock.
  KYR_HIDDEN static void markOfProgress(bool stopped) noexcept;
  /// What Progress tells behind its lock.
  KYR_HIDDEN static void callOfProgress() noexcept;

  std::shared_ptr<State> _state;
};

/// Looks at the token of the work around, as StopToken::current() gives it.
/// \throws Stopped when it is stopped
/// \threadsafety any thread
KYR_EXPORT void throwIfStopped();
/// Looks at the token of the work around, as StopToken::current() gives it.
/// \threadsafety any thread
KYR_EXPORT bool isStopped() noexcept;

/// Makes a token the current one of this thread while it lives. Automatic objects only: they end
/// in the reverse order of their beginning.
/// \threadsafety one thread
class KYR_EXPORT StopScope {
 public:
  /// \param token current until this object ends; then the one before is again
  explicit StopScope(const StopToken& token);
  ~StopScope();
  StopScope(const StopScope&) = delete;
  StopScope& operator=(const StopScope&) = delete;

 private:
  const StopToken _token;
  const StopToken* const _before;
};

/// Calls a function when a token is stopped, while it lives.
/// \threadsafety one thread; the function is called on the thread that stops the token
class KYR_EXPORT StopCallback {
 public:
  /// \param callback called on the thread that stops the token, without a lock of the library but
  ///        what that thread holds; at once, by this constructor, when the token is stopped. It
  ///        must not throw, which would end the process. With StopToken::ofProgress() it is called
  ///        each time that the abort flag is set.
  StopCallback(const StopToken& token, std::function<void()> callback);
  /// Afterwards the function is not called any more: waits for a call on another thread to return.
  ~StopCallback();
  StopCallback(const StopCallback&) = delete;
  StopCallback& operator=(const StopCallback&) = delete;

 private:
  friend class StopToken;
  struct KYR_HIDDEN Node;

  std::unique_ptr<Node> _node;
};

}  // namespace Kyr
