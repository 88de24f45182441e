/// \file
/// Names in natural order, and directories without dots.
#include "support/Ratios.h"

#include <kyr/files/KyrFilename.h>
#include <kyr/text/KyrNumString.h>

#include <QCollator>
#include <QString>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <numeric>
#include <random>
#include <utility>
#include <vector>

namespace {

using Kyr::NumString;
using KyrBench::Growth;
using KyrBench::Ratio;

/// Names in no order, as a directory lists them.
/// \param pattern of one number or two
std::vector<QString> names(int count, const QString& pattern) {
  std::mt19937 random(7);
  std::vector<int> numbers(static_cast<std::size_t>(count));
  std::iota(numbers.begin(), numbers.end(), 0);
  std::shuffle(numbers.begin(), numbers.end(), random);
  std::vector<QString> made;
  for (const int number : numbers) {
    const QString name = pattern.arg(number, 6, 10, QChar('0'));
    made.push_back(name.contains('%') ? name.arg(random() % 100) : name);
  }
  return made;
}

constexpr const char* image = "img_%1.tif";
constexpr const char* position = "scan%2 position%1.tif";

QCollator numericCollator() {
  QCollator collator(QLocale::English);
  collator.setNumericMode(true);
  return collator;
}

constexpr int compared = 1000;

void naturalCompare(benchmark::State& state) {
  const std::vector<QString> texts = names(compared, position);
  const std::vector<NumString> parsed(texts.begin(), texts.end());
  for (auto _ : state) {
    int sum = 0;
    for (std::size_t i = 1; i < parsed.size(); ++i) {
      sum += parsed[i - 1].compare(parsed[i]);
    }
    benchmark::DoNotOptimize(sum);
  }
}
void naturalCompareQt(benchmark::State& state) {
  const std::vector<QString> texts = names(compared, position);
  const QCollator collator = numericCollator();
  for (auto _ : state) {
    int sum = 0;
    for (std::size_t i = 1; i < texts.size(); ++i) {
      sum += collator.compare(texts[i - 1], texts[i]);
    }
    benchmark::DoNotOptimize(sum);
  }
}

constexpr int sorted = 100000;

void naturalSort(benchmark::State& state, const char* pattern) {
  const std::vector<QString> texts = names(sorted, pattern);
  for (auto _ : state) {
    std::vector<NumString> keys(texts.begin(), texts.end());
    std::sort(keys.begin(), keys.end());
    benchmark::DoNotOptimize(keys.data());
  }
}
void naturalSortQt(benchmark::State& state, const char* pattern) {
  const std::vector<QString> texts = names(sorted, pattern);
  const QCollator collator = numericCollator();
  for (auto _ : state) {
    std::vector<std::pair<QCollatorSortKey, QString>> keys;
    keys.reserve(texts.size());
    for (const QString& text : texts) {
      keys.emplace_back(collator.sortKey(text), text);
    }
    std::sort(keys.begin(), keys.end(),
              [](const auto& left, const auto& right) { return left.first < right.first; });
    benchmark::DoNotOptimize(keys.data());
  }
}

void absoluteDirectory(benchmark::State& state, const char* root) {
  Kyr::Filename::Name name;
  name.setDirectory(root + QString("/scan/./x/..").repeated(static_cast<int>(state.range(0))));
  for (auto _ : state) {
    benchmark::DoNotOptimize(name.getAbsoluteDirectory());
  }
}

BENCHMARK(naturalCompare);
BENCHMARK(naturalCompareQt);
BENCHMARK_CAPTURE(naturalSort, image, image)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(naturalSortQt, image, image)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(naturalSort, position, position)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(naturalSortQt, position, position)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(absoluteDirectory, file, "")->Arg(2000)->Arg(20000);
// Qt leaves the segments of a resource's name to be removed here.
BENCHMARK_CAPTURE(absoluteDirectory, resource, ":")->Arg(2000)->Arg(20000);

const Ratio comparing("NumString::compare against QCollator", "naturalCompare", "naturalCompareQt",
                      3);
const Ratio images("100,000 names of images sorted, against QCollator's keys", "naturalSort/image",
                   "naturalSortQt/image", 1);
const Ratio positions("the same with two numbers in each name", "naturalSort/position",
                      "naturalSortQt/position", 1);
const Growth files("getAbsoluteDirectory, ten times the segments", "absoluteDirectory/file/20000",
                   "absoluteDirectory/file/2000", 15);
const Growth resources("the same, removed by the library itself",
                       "absoluteDirectory/resource/20000", "absoluteDirectory/resource/2000", 15);

}  // namespace
