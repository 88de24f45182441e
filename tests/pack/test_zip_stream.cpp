#include <kyr/pack/KyrZipStream.h>

#include "pack/Bytes.h"
#include "support/Support.h"

#include <gtest/gtest.h>

#include <QFile>

using Kyr::ZipInStream;
using Kyr::ZipOutStream;
using KyrTest::drain;
using KyrTest::noisy;
using KyrTest::zipped;

namespace {

TEST(ZipStream, AnEmptyStreamByteForByte) {
  const std::string expected(
      "Kyr-V5.x\0HEADER\0Kyr-ZIP-Stream\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\1\2\3\4"
      "\r\n\0\n\0\r\0\n\r\0\0\0time\x68\0\0\0"
      "6.2.0-6\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\x8\0\x78\1\3\0\0\0\0\1\0\0",
      116);
  std::string file = zipped("", 0x04030201);
  EXPECT_EQ(file.replace(64, 4, "time"), expected);
  std::istringstream source(file);
  ZipInStream in(&source, 0x04030201);
  EXPECT_EQ(in.getHeaderInfo().fileVersion, 0x04030201U);
  EXPECT_EQ(in.getHeaderInfo().time, 0x656D6974U);
  EXPECT_EQ(in.getHeaderInfo().headerSize, 104U);
  EXPECT_EQ(in.getHeaderInfo().libraryVersion, "6.2.0-6");
}

/// Writes in pieces of a size; 0 puts single bytes, 1 goes the way of any output stream.
std::string writtenIn(const std::string& plain, std::size_t piece) {
  std::ostringstream file;
  ZipOutStream out(&file, 1);
  for (std::size_t done = 0; done < plain.size(); done += std::max<std::size_t>(piece, 1)) {
    const auto length = std::streamsize(std::min(piece, plain.size() - done));
    piece == 0   ? out.put(plain[done])
    : piece == 1 ? out.std::ostream::write(&plain[done], 1)
                 : out.write(&plain[done], length);
  }
  out.close();
  EXPECT_TRUE(out.good());
  return file.str().replace(64, 4, "time");
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
      EXPECT_EQ(statistics.offset, file.size());
      EXPECT_EQ(104 + 2 * statistics.blocks + statistics.compressedBytes + 2, file.size());
    }
  }
}

TEST(ZipStream, FormattedTextAndMixedReads) {
  std::stringstream file;
  ZipOutStream out(&file, 1);
  out << std::flush << std::flush << "12 line two\n" << std::flush << "rest" << std::endl;
  out.write("0123456789", 10);
  out.close();
  out.close();
  EXPECT_TRUE(out.good()) << "flushing nothing, or closing twice, is no failure";
  ZipInStream in(&file, 1);
  int integer = 0;
  std::string line;
  std::getline(in >> integer >> std::ws, line);
  EXPECT_EQ(line + std::to_string(integer), "line two12");
  char room[40];
  EXPECT_EQ(in.read(room, 4).gcount(), 4);
  EXPECT_EQ(in.get(), '\n');
  EXPECT_EQ(in.gcount(), 1) << "the short cut of read() hides later counts";
  in.unget();
  EXPECT_EQ(in.read(room, sizeof(room)).gcount(), 11);
  EXPECT_EQ(std::string(room, 11), "\n0123456789");
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
    EXPECT_EQ(in.getState(), ZipInStream::StreamComplete);
  }
  ZipInStream missing(directory.file("missing"), 5);
  EXPECT_TRUE(missing.bad() && missing.getHeaderError() == ZipInStream::HeaderUnreadable);
}

/// Takes some bytes, then no more.
class Limited : public std::streambuf {
 public:
  explicit Limited(std::streamsize room) : _room(room) {}

 protected:
  std::streamsize xsputn(const char*, std::streamsize count) override {
    const std::streamsize taken = std::min(_room, count);
    _room -= taken;
    return taken;
  }

 private:
  std::streamsize _room;
};

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

TEST(ZipOutStream, ATargetThatFailsAtAnyByteIsNoticed) {
  const std::string plain = noisy(17000, 1);
  const auto size = static_cast<std::streamsize>(zipped(plain).size());
  for (std::streamsize room = 0; room <= size; room += room < 200 || room + 100 > size ? 1 : 61) {
    for (const std::ios::iostate thrown : {std::ios::goodbit, std::ios::badbit}) {
      Limited limited(room);
      std::ostream target(&limited);
      target.exceptions(thrown);
      ZipOutStream out(&target, 1);
      EXPECT_EQ(out.bad(), room < 104);
      EXPECT_EQ(arrives(out, plain), room == size) << room << " of " << size;
    }
  }
}

TEST(ZipOutStream, FilesThatCannotBeWritten) {
  ZipOutStream directory(KyrTest::TempDir().path() + "/", 1);
  EXPECT_TRUE(directory.bad());
  EXPECT_FALSE(arrives(directory, "plain"));
  ZipOutStream full("/dev/full", 1);
  if (QFile::exists("/dev/full")) {
    EXPECT_TRUE(full.good());
    EXPECT_FALSE(arrives(full, "plain")) << "the last chance to notice is close()";
  }
}

}  // namespace
