#include "support/Ratios.h"

#include <kyr/i18n/KyrTranslate.h>
#include <kyr/i18n/KyrTranslator.h>

#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QTranslator>

#include <array>
#include <memory>

namespace {

constexpr const char* context = "Kyr_zip_err";
constexpr std::array<const char*, 4> texts{
    "cannot read zip stream header", "invalid zip stream header",
    "invalid file version: %1. the file is newer than the actual program version: %2",
    "unknown file version"};

/// A program that speaks German: its catalogue lies beside the folder of the programs.
class GermanProgram {
 public:
  GermanProgram() {
    if (!QCoreApplication::instance()) {
      _application = std::make_unique<QCoreApplication>(_count, _arguments.data());
    }
    if (_catalogue.load("Kyr_de.qm", QCoreApplication::applicationDirPath() + "/../messages")) {
      QCoreApplication::installTranslator(&_catalogue);
    }
  }
  bool isGerman() const { return !_catalogue.isEmpty(); }

 private:
  int _count = 1;
  char _name[6] = "bench";
  std::array<char*, 2> _arguments{_name, nullptr};
  std::unique_ptr<QCoreApplication> _application;
  QTranslator _catalogue;
  const Kyr::Translator _translator{"de"};
};

bool speaksGerman() {
  static const GermanProgram program;
  return program.isGerman();
}

// In both: each thread asks for one of two texts, all of them together for all four.
template <class Translate>
void translateAll(benchmark::State& state, Translate translate) {
  if (!speaksGerman()) {
    state.SkipWithError("there is no catalogue");
    return;
  }
  const std::size_t first = state.thread_index() == 0 ? 0 : 2;
  for (auto _ : state) {
    benchmark::DoNotOptimize(translate(context, texts[first]));
    benchmark::DoNotOptimize(translate(context, texts[first + 1]));
  }
  state.SetItemsProcessed(state.iterations() * 2);
}

void Translate_kyr(benchmark::State& state) {
  translateAll(state,
               [](const char* family, const char* text) { return Kyr::translate(family, text); });
}
BENCHMARK(Translate_kyr);
BENCHMARK(Translate_kyr)->Threads(1)->Threads(2)->UseRealTime();

void Translate_qt(benchmark::State& state) {
  translateAll(state, [](const char* family, const char* text) {
    return QCoreApplication::translate(family, text);
  });
}
BENCHMARK(Translate_qt);

const KyrBench::Ratio translation("translate / QCoreApplication::translate", "Translate_kyr",
                                  "Translate_qt", 2.5);
const KyrBench::Ratio threads("translate, two threads / one", "Translate_kyr/real_time/threads:2",
                              "Translate_kyr/real_time/threads:1", 0.0);

}  // namespace
