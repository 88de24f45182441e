// The vertices of a scan, repeated to 50 MB, through the keyed interface and through its peers.
#include <kyr/files/KyrFileParse.h>

#include "support/Ratios.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTextStream>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <memory>
#include <string>

namespace {

constexpr std::size_t fileSize = 50'000'000;

/// Vertex lines of a real scan where it is installed, of a wavy sheet otherwise.
std::string vertexLines() {
  std::ifstream scan("/usr/share/glmark2/models/bunny.obj");
  std::string lines;
  for (std::string line; std::getline(scan, line);) {
    lines += line.rfind("v ", 0) == 0 ? line + '\n' : "";
  }
  for (int i = 0; !scan.is_open() && i < 30000; ++i) {
    std::array<char, 100> line{};
    std::snprintf(line.data(), line.size(), "v %.6g %.6g %.6g\n", std::sin(i * 0.1),
                  std::cos(i * 0.03), i * 0.00003);
    lines += line.data();
  }
  return lines;
}

/// The same values as a single data line.
std::string joined(const std::string& lines) {
  std::string text = "v";
  for (const char byte : lines) {
    text += byte == '\n' ? std::string(" \\\n") : std::string(1, byte == 'v' ? ' ' : byte);
  }
  return text;
}

/// Files of one run; they go with the process.
struct Files {
  Files() {
    const std::string lines = vertexLines();
    const std::string line = joined(lines);
    std::ofstream vertices(path("vertices"), std::ios::binary);
    std::ofstream single(path("joined"), std::ios::binary);
    for (size = 0; size < fileSize; size += lines.size()) {
      vertices << lines;
      single << (size == 0 ? line : line.substr(1));
    }
    single << '\n';
  }
  std::string path(const char* name) const { return directory.filePath(name).toStdString(); }

  QTemporaryDir directory;
  std::size_t size = 0;
};

const Files& files() {
  static const Files made;
  return made;
}

using Stream = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;

Stream openFile(const char* name) {
  return Stream(std::fopen(files().path(name).c_str(), "rb"), &std::fclose);
}

void setBytes(benchmark::State& state) {
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(files().size));
}

/// Calls \a read until the file has ended.
template <class ReadLine>
void readAll(benchmark::State& state, const char* name, ReadLine read) {
  for (auto _ : state) {
    const Stream stream = openFile(name);
    Kyr::FileParse::File file(stream.get());
    double sum = 0;
    try {
      for (;;) {
        read(file, sum);
      }
    } catch (const Kyr::FileParse::EndOfFile&) {
      benchmark::DoNotOptimize(sum);
    }
  }
  setBytes(state);
}

void addVertex(Kyr::FileParse::File& file, double& sum) {
  double x = 0;
  double y = 0;
  double z = 0;
  file.nextDouble(x);
  file.nextDouble(y);
  file.nextDouble(z);
  sum += x + y + z;
}

void fileparse_vertices(benchmark::State& state) {
  readAll(state, "vertices", [](Kyr::FileParse::File& file, double& sum) {
    file.getLine("v");
    addVertex(file, sum);
  });
}
BENCHMARK(fileparse_vertices)->Unit(benchmark::kMillisecond);

void fileparse_any_key(benchmark::State& state) {
  QString key;
  readAll(state, "vertices", [&key](Kyr::FileParse::File& file, double& sum) {
    file.getLine("");
    file.nextString(key);
    sum += static_cast<double>(key.size());
    addVertex(file, sum);
  });
}
BENCHMARK(fileparse_any_key)->Unit(benchmark::kMillisecond);

void fileparse_one_line(benchmark::State& state) {
  readAll(state, "joined", [](Kyr::FileParse::File& file, double& sum) {
    file.getLine("v");
    while (!file.atEndOfLine()) {
      addVertex(file, sum);
    }
  });
}
BENCHMARK(fileparse_one_line)->Unit(benchmark::kMillisecond);

void fileparse_peer_textstream(benchmark::State& state) {
  for (auto _ : state) {
    QFile file(QString::fromStdString(files().path("vertices")));
    file.open(QIODevice::ReadOnly);
    QTextStream stream(&file);
    QString key;
    double x = 0;
    double y = 0;
    double z = 0;
    double sum = 0;
    while (!(stream >> key >> x >> y >> z).atEnd()) {
      sum += x + y + z;
    }
    benchmark::DoNotOptimize(sum);
  }
  setBytes(state);
}
BENCHMARK(fileparse_peer_textstream)->Unit(benchmark::kMillisecond);

void fileparse_peer_getline(benchmark::State& state) {
  for (auto _ : state) {
    std::ifstream stream(files().path("vertices"), std::ios::binary);
    double sum = 0;
    for (std::string line; std::getline(stream, line);) {
      char* at = line.data() + 1;
      const double x = std::strtod(at, &at);
      const double y = std::strtod(at, &at);
      sum += x + y + std::strtod(at, &at);
    }
    benchmark::DoNotOptimize(sum);
  }
  setBytes(state);
}
BENCHMARK(fileparse_peer_getline)->Unit(benchmark::kMillisecond);

/// Reads a value behind blanks.
const char* readMapped(const char* at, const char* end, double* value) {
  while (at != end && *at == ' ') {
    ++at;
  }
  return std::from_chars(at, end, *value).ptr;
}

void fileparse_peer_mapped(benchmark::State& state) {
  for (auto _ : state) {
    QFile file(QString::fromStdString(files().path("vertices")));
    file.open(QIODevice::ReadOnly);
    const auto* at = reinterpret_cast<const char*>(file.map(0, file.size()));
    const char* const end = at + file.size();
    double sum = 0;
    while (at != end && *at == 'v') {
      double x = 0;
      double y = 0;
      double z = 0;
      at = readMapped(readMapped(readMapped(at + 1, end, &x), end, &y), end, &z);
      sum += x + y + z;
      at = std::find(at, end, '\n');
      at += at != end ? 1 : 0;
    }
    benchmark::DoNotOptimize(sum);
  }
  setBytes(state);
}
BENCHMARK(fileparse_peer_mapped)->Unit(benchmark::kMillisecond);

void fileparse_count(benchmark::State& state) {
  const Stream stream = openFile("vertices");
  const Kyr::FileParse::File file(stream.get());
  for (auto _ : state) {
    benchmark::DoNotOptimize(file.getNumberOfLines());
  }
  setBytes(state);
}
BENCHMARK(fileparse_count)->Unit(benchmark::kMillisecond);

void fileparse_peer_fgetc(benchmark::State& state) {
  const Stream stream = openFile("vertices");
  for (auto _ : state) {
    std::rewind(stream.get());
    int count = 0;
    for (int byte = 0; (byte = std::fgetc(stream.get())) != EOF;) {
      count += byte == '\n' ? 1 : 0;
    }
    benchmark::DoNotOptimize(count);
  }
  setBytes(state);
}
BENCHMARK(fileparse_peer_fgetc)->Unit(benchmark::kMillisecond);

const KyrBench::Ratio overTextStream("FileParse: vertices over QTextStream", "fileparse_vertices",
                                     "fileparse_peer_textstream", 5.0);
const KyrBench::Ratio overGetline("FileParse: vertices over getline + strtod", "fileparse_vertices",
                                  "fileparse_peer_getline", 2.0);
const KyrBench::Ratio overMap("FileParse: vertices over a memory map + from_chars",
                              "fileparse_vertices", "fileparse_peer_mapped", 0.75);
const KyrBench::Ratio anyKey("FileParse: key as a value over getline + strtod", "fileparse_any_key",
                             "fileparse_peer_getline", 2.0);
const KyrBench::Growth oneLine("FileParse: one line of 50 MB, over many lines",
                               "fileparse_one_line", "fileparse_vertices", 2.0);
const KyrBench::Ratio lineCount("FileParse: getNumberOfLines over fgetc", "fileparse_count",
                                "fileparse_peer_fgetc", 5.0);

}  // namespace
