// Does one thing very often or with something very large, and prints how long that took in seconds
// and how much memory the process had at most in KiB:
//
//   faults_limits THING NUMBER FOLDER
#include <kyr/Kyr.h>

#include <QCoreApplication>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

#include <unistd.h>

using namespace Kyr;

namespace {

constexpr quint64 mebibyte = 1U << 20U;

void expect(bool holds, const char* what) {
  if (!holds) {
    throw std::runtime_error(what);
  }
}

ZipPieces quick() {
  ZipPieces pieces;
  pieces.workers = 2;
  pieces.engine = ZipPieces::FastestEngine;
  return pieces;
}

/// A mebibyte that begins with its number.
void mark(std::string& block, quint64 number) {
  const std::string text = std::to_string(number) + '\n';
  std::copy(text.begin(), text.end(), block.begin());
}

/// A zip stream of so many mebibytes, all of it read, and its last one found by its place.
void stream(quint64 mebibytes, const QString& folder) {
  std::string block(mebibyte, ' ');
  SafeFile file(folder + "/large.kyr");
  ZipOutStream out(&file.stream(), 1, quick());
  for (quint64 i = 0; i < mebibytes; ++i) {
    mark(block, i);
    out.write(block.data(), static_cast<std::streamsize>(mebibyte));
  }
  out.close();
  file.commit();
  ZipInStream in(folder + "/large.kyr", 1);
  std::string read(mebibyte, '\0');
  for (quint64 i = 0; in.read(&read[0], mebibyte); ++i) {
    expect(std::strtoull(read.c_str(), nullptr, 10) == i, "another mebibyte came than was written");
  }
  expect(in.getState() == ZipInStream::StreamComplete && in.gcount() == 0, "the end is not met");
  expect(in.getStatistics().plainBytes == mebibytes * mebibyte, "bytes are missing");
  in.clear();
  in.seekg(static_cast<std::streamoff>((mebibytes - 1) * mebibyte));
  quint64 last = 0;
  in >> last;
  expect(last == mebibytes - 1, "the last mebibyte is not in its place");
}

/// An archive of a file with a hole of so many mebibytes.
void archive(quint64 mebibytes, const QString& folder) {
  const QString hole = folder + "/hole";
  OpenFile(hole, OS::OpenWrite).close();
  expect(::truncate(qPrintable(hole), static_cast<off_t>(mebibytes * mebibyte)) == 0, "no hole");
  SafeFile file(folder + "/large.tar.gz");
  ZippedTarWriter writer(&file.stream(), quick());
  writer.setTaking(ZippedTarWriter::TakeAll);
  writer.addFile(hole, "hole");
  writer.addContents("behind", "it", 0);
  writer.addEof();
  writer.flush();
  expect(writer.getLosses().empty() && writer.getFileCount() == 2, "files are missing");
  file.commit();
}

/// Keyed text of so many mebibytes from standard input, in lines of 4096 bytes: comments, and a
/// value at the end.
void text(quint64 mebibytes, const QString& /*folder*/) {
  FileParse::File file(stdin);
  quint64 value = 0;
  file.getInt("LINES", value);
  expect(value == mebibytes * 256, "another value came than was written");
  expect(file.getPhysicalLineNumber() == static_cast<qint64>(value) + 1,
         "lines are counted wrongly");
}

/// An archive with so many entries.
void entries(quint64 count, const QString& /*folder*/) {
  StructVector<unsigned char> packed;
  ZippedTarWriter writer(&packed);
  for (quint64 i = 0; i < count; ++i) {
    writer.addContents(QString("folder/file%1").arg(i), QByteArray::number(i), 0);
  }
  writer.addEof();
  writer.flush();
  const ZippedTarReader reader(packed, {quint64{4} << 30U, static_cast<unsigned>(count), 1000000});
  expect(reader.isValid() && reader.size() == count, "entries are missing");
  const std::vector<unsigned char>& last = reader.getContents(reader.size() - 1);
  expect(std::string(last.begin(), last.end()) == std::to_string(count - 1),
         "the last one is wrong");
}

void journal(quint64 count, const QString& folder) {
  Journal shared(folder + "/many.log", {std::int64_t{1} << 40U, 1});
  for (quint64 i = 0; i < count; ++i) {
    shared.add(Journal::Info, "limits", "an entry as programs write many");
  }
  expect(shared.flush() && shared.getLost() == 0, "entries are lost");
}

/// A folder of so many numbered files, which the caller has made.
void series(quint64 count, const QString& folder) {
  const Filename::Series found(Filename::NameWithNumber(folder + "/img_1.tif", -1));
  expect(found.getMembers().size() == count && found.getGaps().empty(), "files are missing");
}

class Idler : public PoolThread {
 public:
  Idler() : PoolThread(NoLockGUI, "Idler", "limits", 1) {}

 private:
  void work() override {}
};

/// So many threads, a hundred at a time, of which each does ten passes.
void threads(quint64 count, const QString& /*folder*/) {
  for (quint64 i = 0; i < count; i += 100) {
    std::vector<PoolThread*> group(100);
    std::generate(group.begin(), group.end(), [] { return new Idler; });
    PoolForThreads::getPool()->registerThreads("limits", group);
    for (PoolThread* thread : group) {
      thread->start();
    }
    for (int pass = 0; pass < 10; ++pass) {
      for (PoolThread* thread : group) {
        thread->startWorking();
      }
      for (PoolThread* thread : group) {
        thread->waitForWorking();
      }
    }
    PoolForThreads::getPool()->destroyThreads("limits");
  }
}

/// A vector of so many mebibytes, of which only the last byte is touched.
void vector(quint64 mebibytes, const QString& /*folder*/) {
  StructVector<unsigned char> bytes;
  bytes.setSize(mebibytes * mebibyte);
  bytes[bytes.size() - 1] = 7;
  bytes.append(8);
  expect(bytes.size() == mebibytes * mebibyte + 1 && bytes[bytes.size() - 2] == 7,
         "a byte is lost");
}

/// In KiB. What getrusage() says begins with the memory of the program that has started this one.
long mostMemory() {
  std::ifstream status("/proc/self/status");
  std::string word;
  long size = 0;
  while (status >> word && word != "VmHWM:") {
  }
  status >> size;
  return size;
}

void run(const std::string& thing, quint64 number, const QString& folder) {
  static const std::map<std::string, void (*)(quint64, const QString&)> all = {
      {"stream", stream},   {"archive", archive}, {"text", text},       {"entries", entries},
      {"journal", journal}, {"series", series},   {"threads", threads}, {"vector", vector}};
  const auto begun = std::chrono::steady_clock::now();
  all.at(thing)(number, folder);
  const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - begun;
  std::printf("%.3f %ld\n", taken.count(), mostMemory());
}

}  // namespace

int main(int count, char** words) {
  const QCoreApplication application(count, words);
  QStringList arguments = QCoreApplication::arguments();
  KyrInit::InitLibrary({"limits", "1.0"}, arguments);
  try {
    run(words[1], std::strtoull(words[2], nullptr, 10), words[3]);
    KyrInit::CloseLibrary();
    return 0;
  } catch (const std::exception& error) {
    std::cerr << words[1] << ": " << error.what() << '\n';
    return 1;
  }
}
