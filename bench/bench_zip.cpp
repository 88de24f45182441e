// Zip streams against bare zlib and against another library's stream filter. Everything goes
// from memory to memory; every peer turns the same bytes into one compressed stream or back.
#include <kyr/pack/KyrZipStream.h>

#include "support/Ratios.h"

#include <benchmark/benchmark.h>
#include <boost/iostreams/filter/zlib.hpp>
#include <boost/iostreams/filtering_stream.hpp>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <istream>
#include <ostream>
#include <random>
#include <streambuf>
#include <string>
#include <vector>

#include <zlib.h>

namespace {

struct Vertex {
  float x, y, z;
};
static_assert(sizeof(Vertex) == 12);

using Records = std::vector<Vertex>;
constexpr std::size_t recordCount = std::size_t{512} * 512;
constexpr std::size_t plainSize = recordCount * sizeof(Vertex);
constexpr std::size_t bigPiece = 262144;
constexpr std::size_t smallPiece = 8192;

/// A curved surface in rows of points, with the jitter of a scanner; hardly compresses.
const Records& scan() {
  static const Records records = [] {
    std::mt19937 random(1);
    std::normal_distribution<float> noise(0.0F, 0.01F);
    Records made;
    for (int row = 0; row < 512; ++row) {
      for (int column = 0; column < 512; ++column) {
        const float x = 0.2F * static_cast<float>(column) + noise(random);
        const float y = 0.2F * static_cast<float>(row) + noise(random);
        made.push_back({x, y, 30.0F * std::sin(x / 20) * std::cos(y / 30) + noise(random)});
      }
    }
    return made;
  }();
  return records;
}

/// One point again and again, as in a region that was never measured.
const Records& unmeasured() {
  static const Records records(recordCount, Vertex{0.5F, -0.25F, 1e6F});
  return records;
}

const char* bytesOf(const Records& records) {
  return reinterpret_cast<const char*>(records.data());
}

/// A stream buffer over memory that is there already.
class Memory : public std::streambuf {
 public:
  Memory() : _bytes(plainSize + plainSize / 4) {}
  void rewind() { setp(_bytes.data(), _bytes.data() + _bytes.size()); }
  void replay(const std::string& bytes) {
    char* const begin = const_cast<char*>(bytes.data());
    setg(begin, begin, begin + bytes.size());
  }
  std::string written() const { return {pbase(), pptr()}; }

 private:
  std::vector<char> _bytes;
};

void writeBig(std::ostream& out, const Records& records) {
  for (std::size_t done = 0; done < plainSize; done += bigPiece) {
    out.write(bytesOf(records) + done, bigPiece);
  }
}

/// By the stream's own type, so that its own write() is called.
template <class Stream>
void writeRecords(Stream& out, const Records& records) {
  for (const Vertex& vertex : records) {
    out.write(reinterpret_cast<const char*>(&vertex), sizeof(vertex));
  }
}

template <class Stream>
void readRecords(Stream& in) {
  Vertex vertex;
  while (in.read(reinterpret_cast<char*>(&vertex), sizeof(vertex))) {
    benchmark::DoNotOptimize(vertex);
  }
}

void readBig(std::istream& in) {
  static std::vector<char> room(bigPiece);
  while (in.read(room.data(), bigPiece)) {
    benchmark::DoNotOptimize(room.data());
  }
}

/// Deflates in pieces, handing what comes out to the target.
void bareDeflate(std::streambuf& target, const Records& records, std::size_t inPiece,
                 std::size_t outPiece) {
  std::vector<char> room(outPiece);
  z_stream stream{};
  deflateInit(&stream, 1);
  for (std::size_t done = 0; done <= plainSize; done += inPiece) {
    const std::size_t length = std::min(inPiece, plainSize - done);
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(bytesOf(records))) + done;
    stream.avail_in = static_cast<uInt>(length);
    do {
      stream.next_out = reinterpret_cast<Bytef*>(room.data());
      stream.avail_out = static_cast<uInt>(outPiece);
      deflate(&stream, length == 0 ? Z_FINISH : Z_NO_FLUSH);
      target.sputn(room.data(), static_cast<std::streamsize>(outPiece - stream.avail_out));
    } while (stream.avail_out == 0);
  }
  deflateEnd(&stream);
}

void bareInflate(const std::string& packed, std::size_t inPiece, std::size_t outPiece) {
  static std::vector<char> room(bigPiece);
  z_stream stream{};
  inflateInit(&stream);
  int result = Z_OK;
  std::size_t done = 0;
  while (result == Z_OK) {
    if (stream.avail_in == 0) {
      const std::size_t length = std::min(inPiece, packed.size() - done);
      stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(packed.data())) + done;
      stream.avail_in = static_cast<uInt>(length);
      done += length;
    }
    if (stream.avail_out == 0) {
      stream.next_out = reinterpret_cast<Bytef*>(room.data());
      stream.avail_out = static_cast<uInt>(outPiece);
    }
    result = inflate(&stream, Z_SYNC_FLUSH);
    benchmark::DoNotOptimize(room.data());
  }
  inflateEnd(&stream);
}

template <class Write>
void runWrite(benchmark::State& state, Write write) {
  Memory target;
  for ([[maybe_unused]] auto unused : state) {
    target.rewind();
    write(target);
  }
  state.SetBytesProcessed(state.iterations() * std::int64_t{plainSize});
}

void zipWriteBig(benchmark::State& state, const Records& records) {
  runWrite(state, [&](Memory& target) {
    std::ostream stream(&target);
    Kyr::ZipOutStream out(&stream, 1);
    writeBig(out, records);
  });
}

void zipWriteRecords(benchmark::State& state, const Records& records) {
  runWrite(state, [&](Memory& target) {
    std::ostream stream(&target);
    Kyr::ZipOutStream out(&stream, 1);
    writeRecords(out, records);
  });
}
void bareWrite(benchmark::State& state, const Records& records, std::size_t piece) {
  runWrite(state, [&](Memory& target) { bareDeflate(target, records, piece, piece); });
}

void boostWriteRecords(benchmark::State& state, const Records& records) {
  runWrite(state, [&](Memory& target) {
    namespace io = boost::iostreams;
    std::ostream stream(&target);
    io::filtering_ostream out;
    out.push(io::zlib_compressor(io::zlib_params(1)));
    out.push(stream);
    writeRecords(out, records);
  });
}

std::string packed(const Records& records, bool bare) {
  Memory target;
  target.rewind();
  if (bare) {
    bareDeflate(target, records, bigPiece, bigPiece);
  } else {
    std::ostream stream(&target);
    Kyr::ZipOutStream(&stream, 1).write(bytesOf(records), plainSize);
  }
  return target.written();
}

template <class Read>
void runRead(benchmark::State& state, const std::string& bytes, Read read) {
  Memory source;
  for ([[maybe_unused]] auto unused : state) {
    source.replay(bytes);
    read(source);
  }
  state.SetBytesProcessed(state.iterations() * std::int64_t{plainSize});
}

void zipReadBig(benchmark::State& state, const Records& records) {
  runRead(state, packed(records, false), [](Memory& source) {
    std::istream stream(&source);
    Kyr::ZipInStream in(&stream, 1);
    readBig(in);
  });
}

void zipReadRecords(benchmark::State& state, const Records& records) {
  runRead(state, packed(records, false), [](Memory& source) {
    std::istream stream(&source);
    Kyr::ZipInStream in(&stream, 1);
    readRecords(in);
  });
}

void bareRead(benchmark::State& state, const Records& records, std::size_t piece) {
  const std::string bytes = packed(records, true);
  runRead(state, bytes, [&](Memory&) { bareInflate(bytes, piece, piece); });
}

void boostReadRecords(benchmark::State& state, const Records& records) {
  runRead(state, packed(records, true), [](Memory& source) {
    namespace io = boost::iostreams;
    std::istream stream(&source);
    io::filtering_istream in;
    in.push(io::zlib_decompressor());
    in.push(stream);
    readRecords(in);
  });
}

BENCHMARK_CAPTURE(zipWriteBig, scan, scan());
BENCHMARK_CAPTURE(bareWrite, scanBig, scan(), bigPiece);
BENCHMARK_CAPTURE(zipReadBig, scan, scan());
BENCHMARK_CAPTURE(bareRead, scanBig, scan(), bigPiece);
BENCHMARK_CAPTURE(zipWriteRecords, scan, scan());
BENCHMARK_CAPTURE(bareWrite, scan8K, scan(), smallPiece);
BENCHMARK_CAPTURE(zipReadRecords, scan, scan());
BENCHMARK_CAPTURE(bareRead, scan8K, scan(), smallPiece);
BENCHMARK_CAPTURE(zipWriteRecords, unmeasured, unmeasured());
BENCHMARK_CAPTURE(boostWriteRecords, unmeasured, unmeasured());
BENCHMARK_CAPTURE(zipReadRecords, unmeasured, unmeasured());
BENCHMARK_CAPTURE(boostReadRecords, unmeasured, unmeasured());

using KyrBench::Ratio;
const Ratio bigWrites("zip: big writes / deflate, 256 KiB buffer", "zipWriteBig/scan",
                      "bareWrite/scanBig", 0.95);
const Ratio bigReads("zip: big reads / inflate, 256 KiB buffer", "zipReadBig/scan",
                     "bareRead/scanBig", 0.95);
const Ratio recordWrites("zip: 12-byte writes / deflate by 8 KiB", "zipWriteRecords/scan",
                         "bareWrite/scan8K", 0.95);
const Ratio recordReads("zip: 12-byte reads / inflate by 8 KiB", "zipReadRecords/scan",
                        "bareRead/scan8K", 0.95);
const Ratio writesThatVanish("zip: writes that compress away / Boost", "zipWriteRecords/unmeasured",
                             "boostWriteRecords/unmeasured", 1.2);
const Ratio readsThatVanish("zip: reads that compress away / Boost", "zipReadRecords/unmeasured",
                            "boostReadRecords/unmeasured", 1.5);

}  // namespace
