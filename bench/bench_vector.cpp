// Growing the library's byte vector to the size of a large project, beside the standard one.
#include "support/Ratios.h"

#include <kyr/core/KyrStructVector.h>

#include <benchmark/benchmark.h>

#include <array>
#include <vector>

namespace {

constexpr std::size_t large = 64U << 20U;
constexpr std::array<unsigned char, 10240> piece{};

/// In pieces as large as those in which decompressed data comes.
void piecesKyr(benchmark::State& state) {
  for (auto _ : state) {
    Kyr::StructVector<unsigned char> vector;
    while (vector.size() < large) {
      vector.append(piece.data(), piece.size());
    }
    benchmark::DoNotOptimize(vector.data());
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(large) * state.iterations());
}
BENCHMARK(piecesKyr)->Unit(benchmark::kMillisecond);

void piecesStandard(benchmark::State& state) {
  for (auto _ : state) {
    std::vector<unsigned char> vector;
    while (vector.size() < large) {
      vector.insert(vector.end(), piece.begin(), piece.end());
    }
    benchmark::DoNotOptimize(vector.data());
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(large) * state.iterations());
}
BENCHMARK(piecesStandard)->Unit(benchmark::kMillisecond);

void bytesKyr(benchmark::State& state) {
  for (auto _ : state) {
    Kyr::StructVector<unsigned char> vector;
    for (std::size_t i = 0; i < large; ++i) {
      vector.append(static_cast<unsigned char>(i));
    }
    benchmark::DoNotOptimize(vector.data());
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(large) * state.iterations());
}
BENCHMARK(bytesKyr)->Unit(benchmark::kMillisecond);

void bytesStandard(benchmark::State& state) {
  for (auto _ : state) {
    std::vector<unsigned char> vector;
    for (std::size_t i = 0; i < large; ++i) {
      vector.push_back(static_cast<unsigned char>(i));
    }
    benchmark::DoNotOptimize(vector.data());
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(large) * state.iterations());
}
BENCHMARK(bytesStandard)->Unit(benchmark::kMillisecond);

const KyrBench::Ratio pieces("StructVector to 64 MiB in pieces / std::vector", "piecesKyr",
                             "piecesStandard", 0.95);
const KyrBench::Ratio bytes("StructVector to 64 MiB byte by byte / std::vector", "bytesKyr",
                            "bytesStandard", 0.95);

}  // namespace
