// A tar.gz in memory of 1,000 files of 50 KB, read from the disk's cache, against bare zlib, which
// has the finished tar stream in memory, and against libarchive, which reads the files as well. By
// the clock where two threads compress.
#include <kyr/pack/KyrZippedTar.h>

#include "support/Ratios.h"

#include <benchmark/benchmark.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include <archive.h>
#include <archive_entry.h>
#include <zlib.h>

namespace {

constexpr int fileCount = 1000;
constexpr int fileSize = 50000;

/// Lines of a keyed text file with measured points.
QByteArray content(std::mt19937& random) {
  std::normal_distribution<double> noise(0.0, 0.01);
  QByteArray text;
  for (int i = 0; text.size() < fileSize; ++i) {
    text += "POINT " + QByteArray::number(i * 0.1, 'f', 3) + ' ' +
            QByteArray::number(20 * std::sin(i / 200.0) + noise(random), 'f', 6) + '\n';
  }
  return text.left(fileSize);
}

const QString& tree() {
  static const QTemporaryDir* const dir = [] {
    auto* const made = new QTemporaryDir;  // removed at the end of the program
    std::atexit([] { QDir(tree()).removeRecursively(); });
    std::mt19937 random(1);
    for (int i = 0; i < fileCount; ++i) {
      QFile file(made->filePath(QString("scan%1.txt").arg(i, 4, 10, QChar('0'))));
      file.open(QIODevice::WriteOnly);
      file.write(content(random));
    }
    return made;
  }();
  static const QString path = dir->path();
  return path;
}

void fill(Kyr::ZippedTarWriter& writer) {
  writer.addDirectory(tree(), true, "scans");
  writer.addEof();
  writer.flush();
}

Kyr::StructVector<unsigned char> pack() {
  Kyr::StructVector<unsigned char> out;
  Kyr::ZippedTarWriter writer(&out);
  fill(writer);
  return out;
}

void tarMemory(benchmark::State& state) {
  std::size_t size = 0;
  for ([[maybe_unused]] auto unused : state) {
    size = pack().size();
  }
  state.counters["bytes"] = static_cast<double>(size);
}

void tarPieces(benchmark::State& state) {
  Kyr::ZipPieces pieces;
  pieces.workers = static_cast<unsigned>(state.range(0));
  for ([[maybe_unused]] auto unused : state) {
    Kyr::StructVector<unsigned char> out;
    Kyr::ZippedTarWriter writer(&out, pieces);
    fill(writer);
    state.counters["bytes"] = static_cast<double>(out.size());
  }
}

/// The tar stream alone.
const std::vector<unsigned char>& plain() {
  static const std::vector<unsigned char> bytes = [] {
    const Kyr::StructVector<unsigned char> zipped = pack();
    std::vector<unsigned char> made(std::size_t{fileSize + 1024} * (fileCount + 2));
    z_stream stream{};
    inflateInit2(&stream, MAX_WBITS + 16);
    stream.next_in = const_cast<unsigned char*>(zipped.data());
    stream.avail_in = static_cast<uInt>(zipped.size());
    stream.next_out = made.data();
    stream.avail_out = static_cast<uInt>(made.size());
    inflate(&stream, Z_FINISH);
    inflateEnd(&stream);
    made.resize(stream.total_out);
    return made;
  }();
  return bytes;
}

void bareTar(benchmark::State& state) {
  for ([[maybe_unused]] auto unused : state) {
    // An archive of its own each time, as for the others; its pages cost more than they seem to.
    const std::unique_ptr<unsigned char[]> out(new unsigned char[plain().size()]);
    z_stream stream{};
    deflateInit2(&stream, 1, Z_DEFLATED, MAX_WBITS + 16, 8, Z_DEFAULT_STRATEGY);
    stream.next_in = const_cast<unsigned char*>(plain().data());
    stream.avail_in = static_cast<uInt>(plain().size());
    stream.next_out = out.get();
    stream.avail_out = static_cast<uInt>(plain().size());
    benchmark::DoNotOptimize(deflate(&stream, Z_FINISH));
    state.counters["bytes"] = static_cast<double>(stream.total_out);
    deflateEnd(&stream);
  }
}

void addFile(archive* out, const std::string& path, const std::string& name,
             std::vector<char>& room) {
  std::FILE* const file = std::fopen(path.c_str(), "rb");
  archive_entry* const entry = archive_entry_new();
  archive_entry_set_pathname(entry, name.c_str());
  archive_entry_set_size(entry, static_cast<std::int64_t>(std::filesystem::file_size(path)));
  archive_entry_set_filetype(entry, AE_IFREG);
  archive_entry_set_perm(entry, 0644);
  archive_write_header(out, entry);
  std::size_t count = 0;
  while ((count = std::fread(room.data(), 1, room.size(), file)) > 0) {
    archive_write_data(out, room.data(), count);
  }
  archive_entry_free(entry);
  std::fclose(file);
}

void libarchiveTar(benchmark::State& state) {
  const std::string dir = tree().toStdString();
  std::vector<char> room(65536);
  for ([[maybe_unused]] auto unused : state) {
    const std::unique_ptr<char[]> out(new char[plain().size()]);
    std::size_t size = 0;
    archive* const made = archive_write_new();
    archive_write_add_filter_gzip(made);
    archive_write_set_filter_option(made, "gzip", "compression-level", "1");
    archive_write_set_format_ustar(made);
    archive_write_open_memory(made, out.get(), plain().size(), &size);
    for (const QString& name : QDir(tree()).entryList(QDir::Files, QDir::Name)) {
      addFile(made, dir + "/" + name.toStdString(), "scans/" + name.toStdString(), room);
    }
    archive_write_close(made);
    archive_write_free(made);
    state.counters["bytes"] = static_cast<double>(size);
  }
}

BENCHMARK(tarMemory)->Unit(benchmark::kMillisecond);
BENCHMARK(bareTar)->Unit(benchmark::kMillisecond);
BENCHMARK(libarchiveTar)->Unit(benchmark::kMillisecond);
BENCHMARK(tarPieces)->Arg(2)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(libarchiveTar)->Unit(benchmark::kMillisecond)->UseRealTime();

const KyrBench::Ratio bareRatio("tar.gz of 1000 files / zlib on the ready bytes", "tarMemory",
                                "bareTar", 0.95);
const KyrBench::Ratio libarchiveRatio("tar.gz of 1000 files / libarchive", "tarMemory",
                                      "libarchiveTar", 1.0);
const KyrBench::Ratio twoWorkersRatio("tar.gz of 1000 files on two workers / libarchive",
                                      "tarPieces/2/real_time", "libarchiveTar/real_time", 1.7);

}  // namespace
