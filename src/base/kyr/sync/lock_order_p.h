/// \file
/// Which locks have been taken while which others were held.
#pragma once

#include <kyr/sync/lock_text_p.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <mutex>

namespace Kyr::LockBooks {

/// How a lock is held or wanted: a Mutex whole, a MutexReadWrite to write or to read.
enum Mode_t : std::uint32_t { Whole = 0, Write = 1, Read = 2 };

/// Where a lock was made. Its texts belong to whoever made the lock.
struct Origin {
  const char* function;
  const char* file;
  unsigned line;
};

/// A site that was met, with texts of its own: the library that made the lock may be gone.
struct Site {
  std::array<char, 80> function{};
  std::array<char, 40> file{};
  unsigned line = 0;
};

/// What a thread does to a lock: the number of the lock's site, and the mode. Fits an atomic
/// number.
class Use {
 public:
  constexpr Use() = default;
  constexpr explicit Use(std::uint32_t bits) : _bits(bits) {}
  constexpr Use(std::uint32_t site, Mode_t mode) : _bits(site << 2 | mode) {}
  constexpr std::uint32_t bits() const { return _bits; }
  constexpr std::uint32_t site() const { return _bits >> 2; }
  constexpr Mode_t mode() const { return static_cast<Mode_t>(_bits & 3); }
  constexpr bool isShared() const { return mode() == Read; }
  /// Its place in the graph, in which readers and others of a site are two.
  constexpr std::uint32_t node() const { return site() << 1 | (isShared() ? 1U : 0U); }

 private:
  std::uint32_t _bits = 0;
};

/// A thread.
struct Who {
  std::uint64_t number = 0;     // the system's
  std::array<char, 32> name{};  // the system's; may be empty
  std::array<char, 80> made{};  // the site of its Thread; empty for foreign ones
};
Who whoIs(std::uint64_t number) noexcept;
Text& operator<<(Text& text, const Who& who) noexcept;

/// The first time that one lock was wanted while another was held.
struct Chain {
  Who who;
  std::array<Use, 12> held{};  // the first ones, if there are more
  std::uint32_t count = 0;
  Use wanted;
};

/// Guards all that the lock doctor remembers. No Mutex, which it would watch.
std::mutex& guard() noexcept;

/// The number of a site; 0 for one without a name, or when there is no more room. Waits for nobody
/// if the site is known.
std::uint32_t siteOf(const Origin& origin) noexcept;

Text& operator<<(Text& text, const Site& site) noexcept;
Text& operator<<(Text& text, Use use) noexcept;
/// The texts of a site that siteOf() gave.
const Site& siteAt(std::uint32_t number) noexcept;

/// Whether the two have been met in this order. Waits for nobody.
bool isKnown(Use held, Use wanted) noexcept;

/// What became known with a new order.
enum News_t : unsigned { Nothing, ClosesCircle, SharesSite };

/// Remembers that the chain's thread holds \a held and wants the chain's lock.
/// \param text gets what there is to say
News_t learn(Use held, const Chain& chain, Text& text) noexcept;

/// Forgets all orders; the caller holds guard().
void forgetOrders() noexcept;

}  // namespace Kyr::LockBooks
