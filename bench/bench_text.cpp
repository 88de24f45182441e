/// \file
/// Placeholders and tokens of the 8-bit string.
#include "support/Ratios.h"

#include <kyr/text/KyrString.h>

#include <QString>

#include <benchmark/benchmark.h>

#include <random>

namespace {

using Kyr::KString;
using KyrBench::Growth;
using KyrBench::Ratio;

/// A message with three placeholders, within about \a size characters of prose.
KString message(std::size_t size) {
  const KString prose = "The point cloud of the scan was matched with the design. ";
  KString text = "%1 points of %2 lie within ";
  while (text.size() + prose.size() < size) {
    text += prose;
  }
  return text + "%3 mm.";
}

void textArg(benchmark::State& state) {
  const KString text = message(static_cast<std::size_t>(state.range(0)));
  const KString points = "34835";
  const KString name = "ear";
  const KString distance = "0.05";
  for (auto _ : state) {
    KString filled = text.arg(points, name, distance);
    benchmark::DoNotOptimize(filled);
  }
}
void textArgQt(benchmark::State& state) {
  const auto text = QString::fromStdString(message(static_cast<std::size_t>(state.range(0))));
  const QString points = QStringLiteral("34835");
  const QString name = QStringLiteral("ear");
  const QString distance = QStringLiteral("0.05");
  for (auto _ : state) {
    QString filled = text.arg(points, name, distance);
    benchmark::DoNotOptimize(filled);
  }
}

KString anyBytes(std::int64_t size) {
  std::mt19937 random(3);
  KString bytes(static_cast<std::size_t>(size), ' ');
  for (char& byte : bytes) {
    byte = static_cast<char>(random());
  }
  return bytes;
}

void textTokenize(benchmark::State& state) {
  const KString bytes = anyBytes(state.range(0));
  for (auto _ : state) {
    KString token = Kyr::tokenize(bytes, true);
    benchmark::DoNotOptimize(token);
  }
  state.SetBytesProcessed(state.iterations() * state.range(0));
}
void textUntokenize(benchmark::State& state) {
  const KString token = Kyr::tokenize(anyBytes(state.range(0)), true);
  for (auto _ : state) {
    KString bytes = Kyr::untokenize(token, true);
    benchmark::DoNotOptimize(bytes);
  }
  state.SetBytesProcessed(state.iterations() * state.range(0));
}

BENCHMARK(textArg)->Arg(60)->Arg(5000);
BENCHMARK(textArgQt)->Arg(60)->Arg(5000);
BENCHMARK(textTokenize)->Arg(100000)->Arg(1000000);
BENCHMARK(textUntokenize)->Arg(100000)->Arg(1000000);

const Ratio argShort("KString::arg, three arguments, against QString", "textArg/60", "textArgQt/60",
                     1.4);
const Ratio argLong("KString::arg in 5,000 characters against QString", "textArg/5000",
                    "textArgQt/5000", 5);
const Growth tokens("tokenize, ten times the bytes", "textTokenize/1000000", "textTokenize/100000",
                    11);
const Growth bytes("untokenize, ten times the bytes", "textUntokenize/1000000",
                   "textUntokenize/100000", 11);

}  // namespace
