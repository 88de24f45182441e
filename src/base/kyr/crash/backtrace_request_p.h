/// \file
/// What a crashed process and kyr-backtrace say to each other; either includes this file.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <type_traits>

namespace Kyr::Crash {

/// The registers in the numbering that debug information uses, and behind them where to go on, as
/// far as it is none of them: 17 on x86-64, 33 on 64-bit ARM. The rest is not used.
constexpr std::size_t registerCount = 33;
using Registers = std::array<std::uint64_t, registerCount>;

/// One request on the socket, in the machine's own byte order. A BacktraceAnswer follows, once the
/// backtrace is on standard error. The process sends as many requests as it likes, one after the
/// other, and ends the conversation by closing the socket.
struct BacktraceRequest {
  /// Counts up with every change of what follows, so that a program that was left behind by
  /// another version of the library says so instead of printing nonsense.
  static constexpr std::uint32_t currentVersion = 4;

  std::uint32_t version = currentVersion;
  std::uint32_t size = sizeof(BacktraceRequest);  ///< in bytes, these eight included
  /// 0 asks for the stack of a thread that stands still; otherwise only these many calls are
  /// printed.
  std::uint64_t calls = 0;
  /// The thread's registers; or the addresses that the calls return to, the innermost first.
  Registers numbers{};
};

static_assert(std::is_trivially_copyable_v<BacktraceRequest>, "its bytes are sent");
static_assert(offsetof(BacktraceRequest, size) == 4, "every version begins with these eight bytes");
static_assert(sizeof(BacktraceRequest) == 16 + sizeof(Registers), "nothing between the fields");

/// The answer to a request.
struct BacktraceAnswer {
  /// How many addresses follow.
  std::uint64_t count = 0;
  /// One in each module that a printed frame lies in, unless an earlier answer had one.
  std::array<std::uint64_t, 63> addresses{};
};

static_assert(std::is_trivially_copyable_v<BacktraceAnswer>, "its bytes are sent");

}  // namespace Kyr::Crash
