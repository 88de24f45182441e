/// \file
/// Where wishes to end the process come from; one whole file for each system.
#pragma once

#include <functional>
#include <memory>

namespace Kyr::Platform {

/// Catches wishes while it lives; the only one of the process.
class Interrupts {
 public:
  /// \param wished called with the system's number for each wish, on an ordinary thread; a call
  ///        does not wait for the end of the one before it
  explicit Interrupts(std::function<void(int)> wished);
  /// Waits for calls that run.
  ~Interrupts();
  Interrupts(const Interrupts&) = delete;
  Interrupts& operator=(const Interrupts&) = delete;

  /// Ends the process as such a wish does when nobody catches it.
  [[noreturn]] static void endProcess(int wish) noexcept;

 private:
  struct State;
  const std::unique_ptr<State> _state;
};

}  // namespace Kyr::Platform
