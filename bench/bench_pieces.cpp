// Zip streams in pieces against the same streams in one: on one processor, on two, and with the
// fastest engine. By the clock, as several threads work. Everything goes from memory to memory.
#include <kyr/pack/KyrZipStream.h>

#include "support/Ratios.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <istream>
#include <ostream>
#include <random>
#include <streambuf>
#include <string>
#include <vector>

namespace {

using Kyr::ZipPieces;

constexpr std::size_t recordSize = 12;
constexpr std::size_t plainSize = std::size_t{4000000} * recordSize;
constexpr std::size_t bigPart = 262144;

/// A curved surface in rows of points, with the jitter of a scanner or rounded to 10 micrometres.
std::string makeScan(bool isRounded) {
  std::mt19937 random(1);
  std::normal_distribution<float> noise(0.0F, 0.01F);
  std::string bytes;
  bytes.reserve(plainSize);
  const auto finish = [&](float value) {
    const float jittered = value + noise(random);
    return isRounded ? std::round(jittered * 100.0F) / 100.0F : jittered;
  };
  for (std::size_t i = 0; bytes.size() < plainSize; ++i) {
    const std::size_t column = i % 2000, row = i / 2000;
    const float x = 0.2F * static_cast<float>(column);
    const float y = 0.2F * static_cast<float>(row);
    const float z = 30.0F * std::sin(x / 20) * std::cos(y / 30);
    const float point[] = {finish(x), finish(y), finish(z)};
    static_assert(sizeof(point) == recordSize);
    bytes.append(reinterpret_cast<const char*>(point), sizeof(point));
  }
  return bytes;
}

const std::string& scan(bool isRounded) {
  static const std::string plain[] = {makeScan(false), makeScan(true)};
  return plain[isRounded ? 1 : 0];
}

/// Memory as a file: it is written from the beginning, and read from any place.
class Memory : public std::streambuf {
 public:
  Memory() : _bytes(plainSize + plainSize / 4) {}
  void rewind() {
    setp(_bytes.data(), _bytes.data() + _bytes.size());
    setg(nullptr, nullptr, nullptr);
  }
  void replay() {
    char* const begin = _bytes.data();
    const auto size = pptr() - pbase();
    setg(begin, begin, begin + size);
  }

 protected:
  pos_type seekoff(off_type offset, std::ios_base::seekdir from, std::ios_base::openmode) override {
    char* const base = from == std::ios_base::beg   ? eback()
                       : from == std::ios_base::cur ? gptr()
                                                    : egptr();
    setg(eback(), base + offset, egptr());
    return gptr() - eback();
  }
  pos_type seekpos(pos_type place, std::ios_base::openmode mode) override {
    return seekoff(place, std::ios_base::beg, mode);
  }

 private:
  std::vector<char> _bytes;
};

Memory& memory() {
  static Memory memory;
  return memory;
}

/// How a stream is written and read; without workers not in pieces.
struct How {
  unsigned workers;
  ZipPieces::Engine_t engine;
  bool isRounded;
  std::size_t part;  ///< bytes of each write or read
};

ZipPieces piecesOf(const How& how) {
  ZipPieces pieces;
  pieces.workers = how.workers;
  pieces.engine = how.engine;
  return pieces;
}

void writeTo(Kyr::ZipOutStream& out, const How& how) {
  const std::string& plain = scan(how.isRounded);
  for (std::size_t done = 0; done < plain.size(); done += how.part) {
    out.write(&plain[done], static_cast<std::streamsize>(std::min(how.part, plain.size() - done)));
  }
  out.close();
}

void writeOnce(const How& how) {
  memory().rewind();
  std::ostream target(&memory());
  if (how.workers == 0) {
    Kyr::ZipOutStream out(&target, 1);
    writeTo(out, how);
  } else {
    Kyr::ZipOutStream out(&target, 1, piecesOf(how));
    writeTo(out, how);
  }
}

void pieceWrite(benchmark::State& state, const How& how) {
  scan(how.isRounded);
  for ([[maybe_unused]] auto unused : state) {
    writeOnce(how);
  }
  state.SetBytesProcessed(state.iterations() * std::int64_t{plainSize});
}

void pieceRead(benchmark::State& state, const How& how) {
  writeOnce(how.workers == 0 ? how : How{2, ZipPieces::ZlibEngine, how.isRounded, bigPart});
  std::vector<char> room(how.part);
  for ([[maybe_unused]] auto unused : state) {
    memory().replay();
    std::istream source(&memory());
    Kyr::ZipInStream in(&source, 1);
    in.setWorkers(piecesOf(how));
    while (in.read(room.data(), static_cast<std::streamsize>(room.size()))) {
      benchmark::DoNotOptimize(room.data());
    }
  }
  state.SetBytesProcessed(state.iterations() * std::int64_t{plainSize});
}

constexpr auto zlib = ZipPieces::ZlibEngine, fastest = ZipPieces::FastestEngine;
constexpr How today{0, zlib, false, bigPart}, todayRounded{0, zlib, true, bigPart},
    todayRecords{0, zlib, false, recordSize}, one{1, zlib, false, bigPart},
    oneRecords{1, zlib, false, recordSize}, two{2, zlib, false, bigPart},
    fast{1, fastest, false, bigPart}, fastRounded{1, fastest, true, bigPart},
    fastTwo{2, fastest, false, bigPart}, fastTwoRecords{2, fastest, false, recordSize};

BENCHMARK_CAPTURE(pieceWrite, today, today)->UseRealTime();
BENCHMARK_CAPTURE(pieceWrite, one, one)->UseRealTime();
BENCHMARK_CAPTURE(pieceWrite, two, two)->UseRealTime();
BENCHMARK_CAPTURE(pieceWrite, fast, fast)->UseRealTime();
BENCHMARK_CAPTURE(pieceWrite, fastTwo, fastTwo)->UseRealTime();
BENCHMARK_CAPTURE(pieceWrite, todayRounded, todayRounded)->UseRealTime();
BENCHMARK_CAPTURE(pieceWrite, fastRounded, fastRounded)->UseRealTime();
BENCHMARK_CAPTURE(pieceWrite, todayRecords, todayRecords)->UseRealTime();
BENCHMARK_CAPTURE(pieceWrite, oneRecords, oneRecords)->UseRealTime();
BENCHMARK_CAPTURE(pieceWrite, fastTwoRecords, fastTwoRecords)->UseRealTime();
BENCHMARK_CAPTURE(pieceRead, today, today)->UseRealTime();
BENCHMARK_CAPTURE(pieceRead, one, one)->UseRealTime();
BENCHMARK_CAPTURE(pieceRead, two, two)->UseRealTime();
BENCHMARK_CAPTURE(pieceRead, fast, fast)->UseRealTime();
BENCHMARK_CAPTURE(pieceRead, fastTwo, fastTwo)->UseRealTime();

using KyrBench::Ratio;
const Ratio oneWrites("zip: pieces on one worker / one stream", "pieceWrite/one/real_time",
                      "pieceWrite/today/real_time", 0.97);
const Ratio twoWrite("zip: pieces on two workers / on one", "pieceWrite/two/real_time",
                     "pieceWrite/one/real_time", 1.7);
const Ratio fastWrites("zip: scan by the fastest engine / one stream", "pieceWrite/fast/real_time",
                       "pieceWrite/today/real_time", 7);
const Ratio fastRounds("zip: rounded scan by the fastest engine / one stream",
                       "pieceWrite/fastRounded/real_time", "pieceWrite/todayRounded/real_time", 4);
const Ratio smallWrites("zip: 12-byte writes into pieces / into one stream",
                        "pieceWrite/oneRecords/real_time", "pieceWrite/todayRecords/real_time",
                        0.97);
const Ratio fastRecords("zip: 12-byte writes, two fastest workers / one stream",
                        "pieceWrite/fastTwoRecords/real_time", "pieceWrite/todayRecords/real_time",
                        5);
const Ratio oneReads("zip: reading pieces on one worker / one stream", "pieceRead/one/real_time",
                     "pieceRead/today/real_time", 0.97);
const Ratio twoRead("zip: reading pieces on two workers / on one", "pieceRead/two/real_time",
                    "pieceRead/one/real_time", 1.7);
const Ratio fastReads("zip: reading by the fastest engine / one stream", "pieceRead/fast/real_time",
                      "pieceRead/today/real_time", 1.8);

}  // namespace
