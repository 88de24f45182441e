/// \file
/// The unpacked bytes of a gzip file in memory, in the pieces that their reader asks for.
#pragma once

#include <kyr/core/KyrStructVector.h>
#include <kyr/pack/deflate_engine_p.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>

namespace Kyr {

/// Unpacks gzip data; several gzip files one behind the other count as one (RFC 1952). Bytes
/// behind them that are no gzip file are ignored.
class GzipSource {
 public:
  /// \param in stays the caller's and unchanged
  /// \param limit of the unpacked bytes; to reach beyond is a failure
  /// \param used called with the bytes of \a in that were used, and may throw
  GzipSource(const StructVector<unsigned char>& in, std::uint64_t limit,
             std::function<void(std::size_t)> used);

  /// Reads as many bytes as there are, up to \a count.
  /// \return how many; fewer only at the end or after a failure
  std::size_t read(void* room, std::size_t count);
  /// Reads and forgets bytes.
  /// \return whether there were so many
  bool skip(std::uint64_t count);
  /// Reads and forgets what is left.
  void drain();

  /// Counts bytes that come from elsewhere towards the limit.
  /// \return false when that is passed
  bool spend(std::uint64_t count);
  /// Whether there may be so many more bytes, by the limit and by what deflate can hold at most.
  bool canHold(std::uint64_t count) const;
  /// Whether everything was read, and all checksums fit.
  bool isComplete() const { return _ended && !_failed; }

 private:
  unsigned readPortion(unsigned char* room, unsigned count);
  unsigned unpack(unsigned char* room, unsigned count);
  void endMember();

  const unsigned char* _rest;
  std::size_t _restSize;
  std::uint64_t _left;
  const std::function<void(std::size_t)> _used;
  std::unique_ptr<InflateEngine> _engine;
  bool _ended = false;
  bool _failed = false;
};

}  // namespace Kyr
