#include "support/Ratios.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <map>
#include <string>
#include <vector>

namespace KyrBench {

namespace {

struct Row {
  std::string title;
  std::string subject;
  std::string peer;
  double goal;
  bool growth;
};

std::vector<Row>& rows() {
  static std::vector<Row> all;
  return all;
}

/// What a repetition cost. The processor's time, which other work on the machine disturbs least,
/// except where a benchmark asks for the clock because its work is not all done by its thread.
double timeOf(const benchmark::BenchmarkReporter::Run& run) {
  const bool byClock = run.run_name.time_type == "real_time";
  return byClock ? run.GetAdjustedRealTime() : run.GetAdjustedCPUTime();
}

/// Shows the runs as usual and keeps the time of every repetition.
class Collector : public benchmark::ConsoleReporter {
 public:
  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) {
      if (run.run_type == Run::RT_Iteration && !run.error_occurred) {
        _times[run.benchmark_name()].push_back(timeOf(run));
      }
    }
    ConsoleReporter::ReportRuns(runs);
  }
  double median(const std::string& name) const {
    for (const auto& [measured, times] : _times) {
      if (matches(measured, name)) {
        return middle(times);
      }
    }
    return 0;
  }

 private:
  /// Google Benchmark appends settings such as "/real_time" to a name.
  static bool matches(const std::string& measured, const std::string& name) {
    return measured == name || measured == name + "/real_time" ||
           measured.rfind(name + "/repeats:", 0) == 0;
  }
  static double middle(std::vector<double> times) {
    const auto half = times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2);
    std::nth_element(times.begin(), half, times.end());
    return *half;
  }
  std::map<std::string, std::vector<double>> _times;
};

const char* verdict(const Row& row, double ratio) {
  if (row.goal <= 0) {
    return "";
  }
  const bool reached = row.growth ? ratio <= row.goal : ratio >= row.goal;
  return reached ? "reached" : "MISSED";
}

void printTable(const Collector& collected) {
  std::printf(
      "\nMedians of interleaved repetitions, in processor time; where a benchmark's name ends\n"
      "in /real_time, by the clock.\n"
      "%-56s %9s %9s\n",
      "Comparison", "ratio", "goal");
  for (const Row& row : rows()) {
    const double subject = collected.median(row.subject);
    const double peer = collected.median(row.peer);
    if (subject <= 0 || peer <= 0) {
      continue;
    }
    const double ratio = row.growth ? subject / peer : peer / subject;
    std::printf("%-56s %8.2fx %s%8.2f %s\n", row.title.c_str(), ratio,
                row.growth ? "<=" : ">=", row.goal, verdict(row, ratio));
  }
}

}  // namespace

Ratio::Ratio(const char* title, const char* subject, const char* peer, double goal) {
  rows().push_back({title, subject, peer, goal, false});
}

Growth::Growth(const char* title, const char* subject, const char* base, double limit) {
  rows().push_back({title, subject, base, limit, true});
}

}  // namespace KyrBench

int main(int argc, char** argv) {
  std::vector<char*> arguments(argv, argv + argc);
  std::string interleave = "--benchmark_enable_random_interleaving=true";
  std::string repeat = "--benchmark_repetitions=12";
  std::string brief = "--benchmark_min_time=0.05";
  // Given first, so that the command line can override them.
  arguments.insert(arguments.begin() + 1, {interleave.data(), repeat.data(), brief.data()});
  int count = static_cast<int>(arguments.size());
  benchmark::Initialize(&count, arguments.data());
  if (benchmark::ReportUnrecognizedArguments(count, arguments.data())) {
    return 2;
  }
  KyrBench::Collector collected;
  benchmark::RunSpecifiedBenchmarks(&collected);
  KyrBench::printTable(collected);
  return 0;
}
