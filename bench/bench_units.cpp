#include "support/Ratios.h"

#include <kyr/units/KyrQuantityText.h>
#include <kyr/units/KyrUnits.h>

#include <benchmark/benchmark.h>

#include <array>

namespace {

using Kyr::Unit;

constexpr std::size_t count = 1024;

/// Lengths of parts, in millimetres, with digits in every place.
std::array<double, count> lengths() {
  std::array<double, count> values;
  for (std::size_t i = 0; i < count; ++i) {
    values[i] = static_cast<double>(i * 7919 % 100003) * 0.012345 - 300.0;
  }
  return values;
}

template <class Conversion>
void convertAll(benchmark::State& state, Conversion convert) {
  const auto values = lengths();
  for (auto _ : state) {
    for (const double value : values) {
      benchmark::DoNotOptimize(convert(value));
    }
  }
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(count));
}

void Units_toByIdentifier(benchmark::State& state) {
  const Unit* kind = &Kyr::uLength;
  benchmark::DoNotOptimize(kind);
  convertAll(state, [=](double value) { return kind->to(value, Unit::Inch); });
}
BENCHMARK(Units_toByIdentifier);

void Units_fromByIdentifier(benchmark::State& state) {
  const Unit* kind = &Kyr::uLength;
  benchmark::DoNotOptimize(kind);
  convertAll(state, [=](double value) { return kind->from(value, Unit::Inch); });
}
BENCHMARK(Units_fromByIdentifier);

/// What the compiler may not know. DoNotOptimize() would not do: with this compiler it leaves any
/// value in a double that it is shown, and arithmetic on a denormal one takes twenty times as long.
double unknown(double value) {
  const volatile double kept = value;
  return kept;
}

void Units_bareMultiplyAdd(benchmark::State& state) {
  const double factor = unknown(1.0 / 25.4);
  const double offset = unknown(0.0);
  convertAll(state, [=](double value) { return value * factor + offset; });
}
BENCHMARK(Units_bareMultiplyAdd);

void Units_toString(benchmark::State& state) {
  convertAll(state, [](double value) { return Kyr::uLength.toString(value, 3, Unit::Inch); });
}
BENCHMARK(Units_toString);

// The same text: inches need two decimals more than millimetres.
void Units_qtNumber(benchmark::State& state) {
  convertAll(state, [](double value) { return QString::number(value / 25.4, 'f', 5); });
}
BENCHMARK(Units_qtNumber);

const QString& typedLength() {
  static const QString text = "12,5 mm";
  return text;
}

void Units_readQuantity(benchmark::State& state) {
  const Kyr::QuantityText lengths(Kyr::uLength, QLocale(QLocale::German));
  for (auto _ : state) {
    benchmark::DoNotOptimize(lengths.read(typedLength()).value);
  }
}
BENCHMARK(Units_readQuantity);

// What a program does without it, for one way of writing only.
void Units_qtRead(benchmark::State& state) {
  const QLocale german(QLocale::German);
  for (auto _ : state) {
    const QString& text = typedLength();
    const auto blank = text.indexOf(' ');
    bool ok = false;
    const double number = german.toDouble(text.left(blank), &ok);
    Unit::Units_t unit;
    const bool known = Kyr::uLength.getUnitByName(text.mid(blank + 1), &unit);
    benchmark::DoNotOptimize(ok && known ? Kyr::uLength.from(number, unit) : 0.0);
  }
}
BENCHMARK(Units_qtRead);

void Units_quantityText(benchmark::State& state) {
  Kyr::QuantityText lengths(Kyr::uLength, QLocale(QLocale::German));
  lengths.setDecimals(3);
  convertAll(state, [&](double value) { return lengths.number(value); });
}
BENCHMARK(Units_quantityText);

void Units_qtLocaleText(benchmark::State& state) {
  QLocale german(QLocale::German);
  german.setNumberOptions(QLocale::OmitGroupSeparator);
  convertAll(state, [&](double value) { return german.toString(value, 'f', 3); });
}
BENCHMARK(Units_qtLocaleText);

const KyrBench::Ratio read("quantity read / QLocale::toDouble and a look-up", "Units_readQuantity",
                           "Units_qtRead", 1.0);
const KyrBench::Ratio written("quantity text / QLocale::toString", "Units_quantityText",
                              "Units_qtLocaleText", 1.0);
const KyrBench::Ratio text("unit text / QString::number", "Units_toString", "Units_qtNumber", 1.0);
const KyrBench::Ratio to("to unit / bare multiply-add", "Units_toByIdentifier",
                         "Units_bareMultiplyAdd", 0.25);
const KyrBench::Ratio from("from unit / bare multiply-add", "Units_fromByIdentifier",
                           "Units_bareMultiplyAdd", 0.25);

}  // namespace
