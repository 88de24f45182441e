/// \file
/// Numbers to text and back, against Qt's strings.
#include "support/Ratios.h"

#include <kyr/text/KyrParse.h>
#include <kyr/text/KyrString.h>

#include <QString>
#include <QVector>

#include <benchmark/benchmark.h>

#include <array>
#include <charconv>
#include <random>
#include <string>
#include <vector>

namespace {

using Kyr::KString;
using KyrBench::Ratio;

constexpr std::size_t count = 1000;

const std::vector<int>& integers() {
  static const std::vector<int> values = [] {
    std::mt19937 random(1);
    std::vector<int> made(count);
    for (int& value : made) {
      value = static_cast<int>(random()) >> (random() % 28);
    }
    return made;
  }();
  return values;
}

/// Coordinates of a scan in millimetres.
const std::vector<double>& doubles() {
  static const std::vector<double> values = [] {
    std::mt19937 random(2);
    std::uniform_real_distribution<double> coordinate(-1500, 1500);
    std::vector<double> made(count);
    for (double& value : made) {
      value = coordinate(random);
    }
    return made;
  }();
  return values;
}

template <class Text, class Value>
std::vector<Text> texts(const std::vector<Value>& values) {
  std::vector<Text> made;
  for (const Value value : values) {
    made.push_back(Text(KString::number(value).c_str()));
  }
  return made;
}

/// One iteration converts all of the items.
template <class Items, class Convert>
void convertAll(benchmark::State& state, const Items& items, Convert convert) {
  for (auto _ : state) {
    for (const auto& item : items) {
      auto result = convert(item);
      benchmark::DoNotOptimize(result);
    }
  }
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(items.size()));
}

void numbersFormatInt(benchmark::State& state) {
  convertAll(state, integers(), [](int value) { return KString::number(value); });
}
void numbersFormatIntQt(benchmark::State& state) {
  convertAll(state, integers(), [](int value) { return QString::number(value); });
}
void numbersFormatIntToChars(benchmark::State& state) {
  convertAll(state, integers(), [](int value) {
    std::array<char, 11> digits;  // a sign and ten of them
    const auto written = std::to_chars(digits.data(), digits.data() + digits.size(), value);
    return std::string(digits.data(), written.ptr);
  });
}
void numbersFormatDouble(benchmark::State& state) {
  convertAll(state, doubles(), [](double value) { return KString::number(value, 'g', 6); });
}
void numbersFormatDoubleQt(benchmark::State& state) {
  convertAll(state, doubles(), [](double value) { return QString::number(value, 'g', 6); });
}
void numbersFormatFixed(benchmark::State& state) {
  convertAll(state, doubles(), [](double value) { return KString::number(value, 'f', 3); });
}
void numbersFormatFixedQt(benchmark::State& state) {
  convertAll(state, doubles(), [](double value) { return QString::number(value, 'f', 3); });
}
void numbersParseInt(benchmark::State& state) {
  convertAll(state, texts<KString>(integers()), [](const KString& text) { return text.toInt(); });
}
void numbersParseIntQt(benchmark::State& state) {
  convertAll(state, texts<QString>(integers()), [](const QString& text) { return text.toInt(); });
}
void numbersParseDouble(benchmark::State& state) {
  convertAll(state, texts<KString>(doubles()), [](const KString& text) { return text.toDouble(); });
}
void numbersParseDoubleQt(benchmark::State& state) {
  convertAll(state, texts<QString>(doubles()), [](const QString& text) { return text.toDouble(); });
}
void numbersStrictInt(benchmark::State& state) {
  convertAll(state, texts<QString>(integers()),
             [](const QString& text) { return Kyr::qstringToInt(text); });
}
void numbersStrictDouble(benchmark::State& state) {
  convertAll(state, texts<QString>(doubles()),
             [](const QString& text) { return Kyr::qstringToDouble(text); });
}

BENCHMARK(numbersFormatInt);
BENCHMARK(numbersFormatIntQt);
BENCHMARK(numbersFormatIntToChars);
BENCHMARK(numbersFormatDouble);
BENCHMARK(numbersFormatDoubleQt);
BENCHMARK(numbersFormatFixed);
BENCHMARK(numbersFormatFixedQt);
BENCHMARK(numbersParseInt);
BENCHMARK(numbersParseIntQt);
BENCHMARK(numbersParseDouble);
BENCHMARK(numbersParseDoubleQt);
BENCHMARK(numbersStrictInt);
BENCHMARK(numbersStrictDouble);

const Ratio formatInt("KString::number(int) against QString::number", "numbersFormatInt",
                      "numbersFormatIntQt", 4);
const Ratio formatToChars("the same against std::to_chars and a std::string", "numbersFormatInt",
                          "numbersFormatIntToChars", 0.8);
const Ratio formatDouble("KString::number(double, 'g', 6) against QString", "numbersFormatDouble",
                         "numbersFormatDoubleQt", 2);
const Ratio formatFixed("KString::number(double, 'f', 3) against QString", "numbersFormatFixed",
                        "numbersFormatFixedQt", 2);
const Ratio parseInt("KString::toInt against QString::toInt", "numbersParseInt",
                     "numbersParseIntQt", 4);
const Ratio parseDouble("KString::toDouble against QString::toDouble", "numbersParseDouble",
                        "numbersParseDoubleQt", 2);
const Ratio strictInt("qstringToInt against QString::toInt", "numbersStrictInt",
                      "numbersParseIntQt", 3);
const Ratio strictDouble("qstringToDouble against QString::toDouble", "numbersStrictDouble",
                         "numbersParseDoubleQt", 3);

}  // namespace
