#include <kyr/pack/gzip_source_p.h>

#include <algorithm>
#include <array>
#include <utility>

namespace Kyr {

namespace {

/// As much of a size as an engine takes at once, and a signed 32-bit number holds.
constexpr std::size_t largestPortion = 1U << 30U;

/// So much is unpacked between two calls of who watches, a matter of milliseconds.
constexpr std::size_t largestOutput = 1U << 20U;

unsigned portionOf(std::uint64_t size, std::size_t largest) {
  return static_cast<unsigned>(std::min<std::uint64_t>(size, largest));
}

}  // namespace

GzipSource::GzipSource(const StructVector<unsigned char>& in, std::uint64_t limit,
                       std::function<void(std::size_t)> used)
    : _rest(in.data()),
      _restSize(in.size()),
      _left(limit),
      _used(std::move(used)),
      _engine(InflateEngine::make(Container_t::Gzip)) {}

std::size_t GzipSource::read(void* room, std::size_t count) {
  auto* const start = static_cast<unsigned char*>(room);
  std::size_t done = 0;
  while (done < count && !_ended && !_failed) {
    done += readPortion(start + done, portionOf(count - done, largestOutput));
  }
  return done;
}

/// Reads the next bytes. At the limit it asks for one more, which alone tells an end there from a
/// failure.
unsigned GzipSource::readPortion(unsigned char* room, unsigned count) {
  const unsigned allowed = portionOf(_left, count);
  unsigned char beyond = 0;
  const unsigned produced = allowed > 0 ? unpack(room, allowed) : unpack(&beyond, 1);
  if (produced > allowed) {
    _failed = true;
    return 0;
  }
  _left -= produced;
  return produced;
}

unsigned GzipSource::unpack(unsigned char* room, unsigned count) {
  const unsigned portion = portionOf(_restSize, largestPortion);
  _engine->setOutput(room, count);
  _engine->setInput(_rest, portion);
  const Step_t step = _engine->run();
  const unsigned used = portion - _engine->inputLeft();
  const unsigned produced = count - _engine->outputLeft();
  _rest += used;
  _restSize -= used;
  _used(used);
  if (step == Step_t::Ended) {
    endMember();
  } else if (step != Step_t::Progressed) {
    _failed = true;  // there is room, so nothing is left to read
  }
  return produced;
}

void GzipSource::endMember() {
  if (_restSize >= 2 && _rest[0] == 0x1F && _rest[1] == 0x8B) {
    _engine = InflateEngine::make(Container_t::Gzip);
  } else {
    _ended = true;
  }
}

bool GzipSource::skip(std::uint64_t count) {
  std::array<unsigned char, 16384> unused;
  while (count > 0) {
    const auto portion = static_cast<std::size_t>(std::min<std::uint64_t>(count, unused.size()));
    if (read(unused.data(), portion) < portion) {
      return false;
    }
    count -= portion;
  }
  return true;
}

void GzipSource::drain() {
  while (!_ended && !_failed) {
    skip(largestPortion);
  }
}

bool GzipSource::spend(std::uint64_t count) {
  const bool isAllowed = count <= _left;
  _left -= isAllowed ? count : 0;
  return isAllowed;
}

bool GzipSource::canHold(std::uint64_t count) const {
  constexpr std::uint64_t bestRatio = 1032;  // plain bytes for one, the most that deflate reaches
  constexpr std::uint64_t withinEngine = 64;
  return count <= _left && count / bestRatio <= _restSize + withinEngine;
}

}  // namespace Kyr
