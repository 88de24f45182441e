// Whole buffers in memory against bare zlib, which works in memory that is there already.
#include <kyr/pack/KyrCompress.h>

#include "support/Ratios.h"

#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdint>
#include <random>
#include <vector>

#include <zlib.h>

namespace {

using Bytes = std::vector<unsigned char>;
using Kyr::StructVector;

/// Heights of a scanned surface in whole micrometres, with the noise of a scanner.
const Bytes& plain() {
  static const Bytes bytes = [] {
    std::mt19937 random(1);
    std::normal_distribution<double> noise(0.0, 3.0);
    Bytes made;
    for (int i = 0; i < 1 << 20; ++i) {
      const int column = i % 1024;
      const int row = i / 1024;
      const double height = 20000 * std::sin(column / 200.0) * std::cos(row / 150.0);
      const auto micrometres = static_cast<std::int32_t>(height + noise(random));
      for (unsigned shift = 0; shift < 32; shift += 8) {
        made.push_back(static_cast<unsigned char>(micrometres >> shift));
      }
    }
    return made;
  }();
  return bytes;
}

uInt bareDeflate(Bytes& out) {
  z_stream stream{};
  deflateInit(&stream, 1);
  stream.next_in = const_cast<Bytef*>(plain().data());
  stream.avail_in = static_cast<uInt>(plain().size());
  stream.next_out = out.data();
  stream.avail_out = static_cast<uInt>(out.size());
  deflate(&stream, Z_FINISH);
  deflateEnd(&stream);
  return static_cast<uInt>(stream.total_out);
}

void compress(benchmark::State& state) {
  StructVector<unsigned char> out;
  for ([[maybe_unused]] auto unused : state) {
    Kyr::Compress compressor(&out);
    compressor.write(plain().data(), static_cast<unsigned>(plain().size()));
    compressor.flush();
  }
}

void bareCompress(benchmark::State& state) {
  Bytes out(plain().size() + plain().size() / 4);
  for ([[maybe_unused]] auto unused : state) {
    benchmark::DoNotOptimize(bareDeflate(out));
  }
}

StructVector<unsigned char> packed() {
  Bytes out(plain().size() + plain().size() / 4);
  const uInt size = bareDeflate(out);
  StructVector<unsigned char> bytes;
  bytes.append(out.data(), size);
  return bytes;
}

void decompress(benchmark::State& state) {
  const StructVector<unsigned char> in = packed();
  StructVector<unsigned char> out;
  out.reserve(plain().size());
  for ([[maybe_unused]] auto unused : state) {
    out.clear();
    benchmark::DoNotOptimize(Kyr::Decompress(in).read(&out));
  }
}

/// The output vector starts without memory each time and has to grow.
void decompressGrowing(benchmark::State& state) {
  const StructVector<unsigned char> in = packed();
  for ([[maybe_unused]] auto unused : state) {
    StructVector<unsigned char> out;
    benchmark::DoNotOptimize(Kyr::Decompress(in).read(&out));
  }
}

void bareDecompress(benchmark::State& state) {
  const StructVector<unsigned char> in = packed();
  Bytes out(plain().size());
  for ([[maybe_unused]] auto unused : state) {
    z_stream stream{};
    inflateInit(&stream);
    stream.next_in = const_cast<Bytef*>(in.data());
    stream.avail_in = static_cast<uInt>(in.size());
    stream.next_out = out.data();
    stream.avail_out = static_cast<uInt>(out.size());
    benchmark::DoNotOptimize(inflate(&stream, Z_SYNC_FLUSH));
    inflateEnd(&stream);
  }
}

BENCHMARK(compress);
BENCHMARK(bareCompress);
BENCHMARK(decompress);
BENCHMARK(decompressGrowing);
BENCHMARK(bareDecompress);

const KyrBench::Ratio compressRatio("Compress / zlib", "compress", "bareCompress", 0.97);
const KyrBench::Ratio decompressRatio("Decompress / zlib", "decompress", "bareDecompress", 0.97);
const KyrBench::Ratio growingRatio("Decompress into a vector that grows / zlib",
                                   "decompressGrowing", "bareDecompress", 0);

}  // namespace
