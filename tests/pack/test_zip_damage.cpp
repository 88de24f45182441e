#include "pack/Bytes.h"

using Kyr::ZipInStream;
using namespace KyrTest;
using namespace std::string_literals;

namespace {

constexpr std::size_t headerSize = 104;
constexpr auto Complete = ZipInStream::StreamComplete, CutShort = ZipInStream::StreamCutShort,
               Damaged = ZipInStream::StreamDamaged, Refused = ZipInStream::StreamRefused;

std::string with(std::string file, std::size_t at, const std::string& bytes) {
  return file.replace(at, bytes.size(), bytes);
}

std::string newer(const std::string& writer) {
  return "invalid file version: " + writer +
         ". the file is newer than the actual program version: 6.2.0-6";
}

TEST(ZipInStream, HeadersThatAreRefused) {
  const std::string invalid = "invalid zip stream header";
  const std::string ascii =
      "invalid header: the file was transferred by ascii-ftp.\n"
      "it must be transferred by binary-ftp.";
  const std::string good = zipped(noisy(500), 0x0A0D0A);
  const std::tuple<std::string, int, std::string, const char*> rows[] = {
      {good, 0, "", "line ends in the version are no sign of a transfer"},
      {good.substr(0, 103), 1, "cannot read zip stream header", "one byte short"},
      {with(good, 47, "k"), 2, invalid, "last byte of the constant block"},
      {with(good, 0, "Kyr-ZIP\0"s), 2, invalid, "the older form"},
      {std::string(good).erase(52, 1), 2, ascii, "CR LF to LF"},
      {std::string(good).insert(48, 1, '\r'), 2, ascii, "LF to CR LF"},
      {with(good, 63, "\1"), 2, ascii, "the last check byte"},
      {with(good, 71, "\x80"), 2, invalid, "header size with the sign bit"},
      {with(good, 48, "\x0B"), 3, newer("6.2.0-6"), "newer by one"},
      {with(with(good, 48, "\xFF"), 72, std::string(32, 'x')), 3, newer(std::string(32, 'x')),
       "text without an end"},
      {with(with(good, 48, "\xFF"), 72, "\0"s), 3, newer("unknown file version"), "no text"},
      {with(with(good, 48, "\xFF"), 72, "%2%1%2%"), 3, newer("%2%1%2%"), "placeholders"},
  };
  for (const auto& [file, error, text, fault] : rows) {
    std::istringstream source(file);
    source.exceptions(std::ios::badbit | std::ios::failbit);
    ZipInStream in(&source, 0x0A0D0A);
    EXPECT_EQ(in.getHeaderError(), error) << fault;
    EXPECT_EQ(in.getHeaderErrorText().toStdString(), text) << fault;
    EXPECT_EQ(in.bad(), error != 0) << fault;
    EXPECT_EQ(in.rdbuf()->sgetc() == EOF, error != 0) << fault;
  }
}

/// What a reader makes of a file; reads it in several ways, which must agree.
struct Verdict {
  explicit Verdict(const std::string& file) {
    for (const std::size_t piece : {0U, 12U, 20000U}) {
      std::istringstream source(file);
      ZipInStream in(&source, 1);
      const std::string delivered = drain(in, piece);
      EXPECT_TRUE(piece == 0 || delivered == plain) << "depends on how it is read";
      EXPECT_EQ(in.bad(), in.getState() != Complete);
      plain = delivered;
      state = in.getState();
      offset = in.getStatistics().offset;
    }
  }
  std::string plain;
  ZipInStream::State_t state{};
  std::uint64_t offset{};
};

TEST(ZipInStream, EndsAndDamage) {
  const std::string plain = noisy(20000, 1);
  const std::string file = zipped(plain);
  const std::string open = file.substr(0, file.size() - 2);
  const std::size_t second = headerSize + 2 + 8192;  // where the second block begins
  std::size_t size = 8100;  // incompressible bytes that fill a block to its last byte
  while (size < 8192 && zipped(noisy(size, 1)).substr(headerSize, 2) != "\0\x20"s) {
    ++size;
  }
  const std::string full = zipped(noisy(size, 1));
  ASSERT_EQ(full.size(), second) << "a stream that ends with a full block has no end mark";
  const std::string small = zipped("small");
  const std::size_t tail = small.size() - 2;
  struct {
    std::string file;
    ZipInStream::State_t state;
    std::size_t offset;
    std::size_t plainSize;
    const char* fault;
  } const rows[] = {
      {file + "tail", Complete, file.size(), 20000, "bytes behind the stream"},
      {full, Complete, second, size, "no end mark needed"},
      {full + "\0\0"s, Complete, second + 2, size, "but taken"},
      {full + "x", CutShort, second + 1, size, "half a length"},
      {full + "\1\0x\0\0"s, Damaged, second, size, "a block behind the end of the data"},
      {open, CutShort, open.size(), 20000, "the end mark is missing"},
      {file.substr(0, second), CutShort, second, 8185, "a full block ends nothing by itself"},
      {with(file, second, "\1\x20"), Damaged, second, 8185, "8193 is too long"},
      {with(file, second, "\0\0"s), Damaged, second, 8185, "an early end mark"},
      {with(small, 104, std::string(1, char(small[104] + 2))), Damaged, tail, 5,
       "bytes within the block behind the end of the data"},
      {with(small, tail - 1, "x"), Damaged, tail, 5, "a wrong checksum"},
      {with(file, 106, "\x79"), Damaged, 108, 0, "garbage from the start"},
  };
  for (const auto& row : rows) {
    const Verdict verdict(row.file);
    EXPECT_EQ(verdict.state, row.state) << row.fault;
    EXPECT_EQ(verdict.offset, row.offset) << row.fault;
    EXPECT_EQ(verdict.plain.size(), row.plainSize) << row.fault;
    EXPECT_TRUE(verdict.plain == plain.substr(0, row.plainSize) || verdict.plain == "small");
  }
}

TEST(ZipInStream, CutAtEveryByte) {
  const std::string file = zipped(noisy(2000));
  std::size_t before = 0;
  for (std::size_t size = 0; size < file.size(); ++size) {
    const Verdict verdict(file.substr(0, size));
    EXPECT_EQ(verdict.state, size < headerSize ? Refused : CutShort) << size;
    EXPECT_EQ(verdict.offset, size);
    EXPECT_EQ(verdict.plain, noisy(2000).substr(0, verdict.plain.size())) << size;
    EXPECT_GE(verdict.plain.size(), before) << "a longer file gives less";
    before = verdict.plain.size();
  }
  EXPECT_EQ(before, 2000U) << "only the end mark was missing";
  for (const std::streamsize wanted : {2000, 9000}) {
    std::istringstream source(file.substr(0, file.size() - 2));
    ZipInStream in(&source, 1);
    in.exceptions(std::ios::badbit);
    std::string room(9000, '\0');
    EXPECT_THROW(in.read(room.data(), wanted), std::ios::failure);
    EXPECT_EQ(in.gcount(), 2000) << "a reader that throws loses the bytes before the end";
  }
}

/// Reads the bytes that it expects and nothing behind them.
using Reader = std::string (*)(std::istream& in, std::size_t size);

template <std::size_t piece>
std::string readPieces(std::istream& in, std::size_t size) {
  std::string all(size, '\0');
  for (std::size_t done = 0; done < size; done += piece) {
    in.read(&all[done], std::streamsize(std::min(piece, size - done)));
  }
  return all;
}

std::string iterate(std::istream& in, std::size_t size) {
  std::string all;
  for (std::istreambuf_iterator<char> at(in), end; all.size() < size && at != end; ++at) {
    all += *at;
  }
  return all;
}

// The second size is one of whole areas, which fill the last read exactly.
TEST(ZipInStream, WhoReadsOnlyWhatHeExpectsLearnsOfDamage) {
  const std::string plain = noisy(60000, 2);
  const std::pair<const char*, Reader> readers[] = {{"records", readPieces<12>},
                                                    {"big pieces", readPieces<50000>},
                                                    {"one piece", readPieces<1U << 20U>},
                                                    {"iterators", iterate}};
  for (const std::size_t size : {60000U, 49152U}) {
    const std::string wanted = plain.substr(0, size);
    const std::string file = zipped(wanted);
    for (std::size_t at = headerSize; at < file.size(); at += at + 40 < file.size() ? 997 : 1) {
      const std::string changed = with(file, at, std::string(1, char(file[at] ^ (1U << at % 8))));
      for (const auto& [name, reader] : readers) {
        for (const bool throws : {false, true}) {
          std::istringstream source(changed);
          ZipInStream in(&source, 1);
          in.exceptions(throws ? std::ios::badbit : std::ios::goodbit);
          bool isNoticed = false;
          try {
            isNoticed = reader(in, size) == wanted && in.getState() == Complete;  // to no effect
            isNoticed |= !throws && in.bad();
          } catch (const std::ios::failure&) {
            isNoticed = true;
          }
          EXPECT_TRUE(isNoticed) << name << ", byte " << at << " of " << size;
        }
      }
    }
  }
}

TEST(ZipInStream, RecognisesAndDecompressesTheBeginning) {
  const auto recognised = [](const std::string& text) {
    return ZipInStream::isZipStream({text.begin(), text.end()});
  };
  const std::string file = zipped("the application's own header", 4000000000);
  EXPECT_TRUE(recognised(file) && recognised(file.substr(0, 52)) && !recognised(""));
  EXPECT_FALSE(recognised(file.substr(0, 51))) << "too short to be certain";
  EXPECT_FALSE(recognised(with(file, 54, "\r"))) << "text mode";
  EXPECT_FALSE(recognised(with(file, 69, "x"))) << "another header size";
  EXPECT_FALSE(recognised("Kyr-ZIP\0abc"s)) << "the older form needs 12 bytes";
  EXPECT_TRUE(recognised("Kyr-ZIP\0abcd"s) && !recognised("Kyr-ZIP-Stream"));
  std::vector<char> out;
  EXPECT_TRUE(ZipInStream::decompressHeader({file.begin(), file.end() - 8}, out));
  EXPECT_EQ(std::string(out.data(), 20), "the application's ow");
  EXPECT_FALSE(ZipInStream::decompressHeader({file.begin(), file.begin() + 103}, out));
  EXPECT_TRUE(out.empty());
  const std::string damaged = with(file, 105, "\x7F");
  EXPECT_FALSE(ZipInStream::decompressHeader({damaged.begin(), damaged.end()}, out));
  const std::string zeros = zipped(std::string(ZipInStream::mostHeaderBytes + 1, '\0'));
  for (const std::size_t limit :
       {std::size_t{0}, std::size_t{8193}, ZipInStream::mostHeaderBytes}) {
    const std::vector<char> bytes(zeros.begin(), zeros.end());
    EXPECT_TRUE(limit == ZipInStream::mostHeaderBytes
                    ? ZipInStream::decompressHeader(bytes, out)
                    : ZipInStream::decompressHeader(bytes, out, limit));
    EXPECT_EQ(out.size(), limit) << "a few bytes unpack to more than is allowed";
  }
}

}  // namespace
