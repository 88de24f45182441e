#include "pack/Bytes.h"

#include <kyr/files/KyrSafeFile.h>
#include <kyr/pack/KyrZippedTar.h>

using namespace Kyr;
using namespace KyrTest;

namespace {

TEST(ZipStream, AnEmptyStreamByteForByte) {
  const std::string expected(
      "Kyr-V5.x\0HEADER\0Kyr-ZIP-Stream\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\1\2\3\4"
      "\r\n\0\n\0\r\0\n\r\0\0\0time\x68\0\0\0"
      "6.2.0-6\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\x8\0\x78\1\3\0\0\0\0\1\0\0",
      116);
  EXPECT_EQ(zipped("", 0x04030201).replace(64, 4, "time"), expected);
  std::istringstream source(expected);
  const Kyr::ZipHeaderInfo info = ZipInStream(&source, 0x04030201).getHeaderInfo();
  EXPECT_TRUE(info.fileVersion == 0x04030201 && info.time == 0x656D6974);
  EXPECT_TRUE(info.headerSize == 104 && info.libraryVersion == "6.2.0-6");
}

TEST(ZipStream, SizesOfWritesAndReadsDoNotShow) {
  for (const std::string& plain : {noisy(300000), noisy(8192, 1), noisy(16389, 1)}) {
    const std::string file = writtenIn(plain, 12);
    for (const std::size_t piece : {0U, 1U, 12U, 8191U, 8192U, 8193U, 100000U}) {
      EXPECT_TRUE(writtenIn(plain, piece) == file) << plain.size() << " by " << piece;
      std::istringstream source(file);
      ZipInStream in(&source, 1);
      EXPECT_TRUE(drain(in, piece) == plain) << plain.size() << " by " << piece;
      EXPECT_TRUE(in.eof() && !in.bad() && in.getState() == ZipInStream::StreamComplete);
      const Kyr::ZipStatistics statistics = in.getStatistics();
      EXPECT_EQ(statistics.plainBytes, plain.size());
      EXPECT_EQ(104 + 2 * statistics.blocks + statistics.compressedBytes + 2, file.size());
    }
  }
}

TEST(ZipStream, FormattedTextAndMixedReads) {
  std::stringstream file;
  ZipOutStream out(&file, 1);
  out << std::flush << std::flush << "12 line two\n" << std::flush << "rest" << std::endl;
  out.write(noisy(20000).data(), 20000) << "end";
  out.close();
  out.close();
  EXPECT_TRUE(out.good()) << "flushing nothing, or closing twice, is no failure";
  ZipInStream in(&file, 1);
  int integer = 0;
  std::string line;
  std::getline(in >> integer >> std::ws, line);
  EXPECT_EQ(line + std::to_string(integer), "line two12");
  std::string room(20000, '\0');
  EXPECT_EQ(in.read(room.data(), 4).gcount(), 4);
  EXPECT_EQ(in.get(), '\n');
  EXPECT_EQ(in.gcount(), 1) << "the short cut of read() hides later counts";
  EXPECT_EQ(in.unget().get(), '\n');
  EXPECT_TRUE(in.read(room.data(), 20000) && room == noisy(20000));
  EXPECT_EQ(char(in.unget().get()), room.back()) << "a big read leaves older bytes to unget()";
  EXPECT_EQ(in.read(room.data(), 9).gcount(), 3);
  file.write("behind", 6).clear();
  EXPECT_TRUE(std::getline(file, line) && line == "behind") << "the end mark stops the reader";
}

TEST(ZipStream, FilesByUnicodeName) {
  const KyrTest::TempDir directory;
  const QString name = directory.file(QString::fromUtf8("Prüfkörper 測定.kyr"));
  for (const std::size_t size : {100000U, 10U}) {
    ZipOutStream(name, 5).write(noisy(size).data(), std::streamsize(size));
    ZipInStream in(name, 5);
    EXPECT_EQ(drain(in, 70000), noisy(size)) << "the file was not emptied before writing";
  }
}

/// Whether writing and closing succeeds; checks that whatever follows fails.
bool arrives(ZipOutStream& out, const std::string& plain) {
  out.write(plain.data(), std::streamsize(plain.size() - 1)).put(plain.back());
  out.close();
  const bool good = out.good();
  out.clear();
  EXPECT_TRUE(!out.put('x') && out.bad()) << "bytes vanish after the end";
  out.clear();
  out.close();
  EXPECT_EQ(out.good(), good) << "closing again forgets the failure";
  return good;
}

TEST(ZipOutStream, IsNotSavedBeforeItIsClosed) {
  const KyrTest::TempDir dir;
  const QString path = dir.write("part", "old");
  Kyr::SafeFile file(path);
  const auto commit = [&file] { file.commit(); };
  ZipOutStream zip(&file.stream(), 1);
  EXPECT_NE(KyrTest::failure(commit), "") << "a stream without its end replaces a whole file";
  zip.close();
  Kyr::ZippedTarWriter tar(&file.stream());
  EXPECT_NE(KyrTest::failure(commit), "") << "an archive without its end replaces a whole file";
  EXPECT_EQ(KyrTest::readFile(path), "old");
  tar.flush();
  EXPECT_EQ(KyrTest::failure(commit), "") << "a refusal is final";
  Kyr::SafeFile other(path);
  ZipOutStream(&other.stream(), 1).abandon();
  EXPECT_NE(KyrTest::failure([&] { other.commit(); }), "") << "it is closed, but not whole";
}

TEST(ZipOutStream, WhatIsAbandonedLooksCutShort) {
  enum Way { Thrown, Called, Returned, DuringCleanUp };
  const struct {
    Way way;
    ZipInStream::State_t state;
    const char* fault;
  } rows[] = {
      {Thrown, ZipInStream::StreamCutShort, "an exception on its way completes the stream"},
      {Called, ZipInStream::StreamCutShort, "closing after abandon() completes it"},
      {Returned, ZipInStream::StreamComplete, "leaving without close() is no failure"},
      {DuringCleanUp, ZipInStream::StreamComplete, "an exception from before is not this one"},
  };
  for (const std::size_t size : {0U, 100U, 8192U, 100000U}) {
    for (const auto& row : rows) {
      std::ostringstream file;
      const auto write = [&] {
        ZipOutStream out(&file, 1);
        out.write(noisy(size, 1).data(), std::streamsize(size));
        row.way == Thrown ? throw row.way : row.way == Called ? out.abandon() : void();
        EXPECT_EQ(out.bad(), row.way == Called);
      };
      struct CleanUp {
        std::function<void()> action;
        ~CleanUp() { action(); }
      };
      try {
        if (row.way == DuringCleanUp) {
          const CleanUp last{write};
          throw row.way;
        }
        write();
      } catch (Way) {
      }
      const bool isPromised = file.str().substr(file.str().size() - 2) == std::string("\0\x20", 2);
      EXPECT_EQ(isPromised, row.state == ZipInStream::StreamCutShort)
          << "those who end with the source between two blocks see no fault";
      std::istringstream source(file.str());
      ZipInStream in(&source, 1);
      EXPECT_EQ(drain(in, 5000), noisy(size, 1)) << row.fault << ": nothing is left to salvage";
      EXPECT_EQ(in.getState(), row.state) << row.fault;
    }
  }
}

TEST(ZipOutStream, ATargetThatFailsAtAnyByteIsNoticed) {
  const std::string plain = noisy(17000, 1);
  const std::size_t size = zipped(plain).size();
  for (std::size_t count = 0; count <= size; count += count < 200 || count + 100 > size ? 1 : 61) {
    Limited limited(count);
    std::ostream target(&limited);
    target.exceptions(count % 2 == 0 ? std::ios::goodbit : std::ios::badbit);
    ZipOutStream out(&target, 1);
    EXPECT_EQ(out.bad(), count < 104);
    EXPECT_EQ(arrives(out, plain), count == size) << count << " of " << size;
  }
}

TEST(ZipOutStream, TargetsThatTakeNothing) {
  ZipOutStream directory(KyrTest::TempDir().path() + "/", 1);
  EXPECT_FALSE(directory.good() || arrives(directory, "plain"));
  std::stringstream atItsEnd;
  atItsEnd.setstate(std::ios::eofbit);  // as after reading; such a stream drops what is written
  ZipOutStream lost(&atItsEnd, 1);
  EXPECT_FALSE(lost.good() || arrives(lost, "plain"));
  if (const QString device = KyrTest::fullDevice(); !device.isEmpty()) {
    ZipOutStream full(device, 1);
    EXPECT_TRUE(full.good());
    EXPECT_FALSE(arrives(full, "plain")) << "the last chance to notice is close()";
    std::ofstream given(device.toStdString());
    ZipOutStream through(&given, 1);
    EXPECT_FALSE(arrives(through, "plain")) << "what the target holds back is lost";
  }
}

}  // namespace
