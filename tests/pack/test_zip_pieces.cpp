#include "pack/Bytes.h"

#include <kyr/pack/KyrZipSalvage.h>

using namespace Kyr;
using namespace KyrTest;

namespace {

constexpr std::size_t pieceSize = 262144;
constexpr std::size_t entrySize = 16;  // of a piece in the index

TEST(ZipPieces, TheFileIsTheSameForAllWorkersAndWrites) {
  for (const std::size_t size : {0U, 1U, 3U, 262143U, 262144U, 262145U, 1000000U}) {
    const std::string plain = noisy(size, size < 10 ? 1 : 4);
    const ZipPieces alone = piecesBy(1);
    const std::string file = writtenIn(plain, 12, &alone);
    for (const unsigned workers : {0U, 2U, 16U, 1000U}) {
      const ZipPieces pieces = piecesBy(workers);
      for (const std::size_t part : {0U, 70001U, 262144U, 700000U}) {
        EXPECT_TRUE(writtenIn(plain, part, &pieces) == file)
            << size << " bytes by " << part << " on " << workers;
      }
    }
    std::istringstream pipe(file);
    ZipInStream in(&pipe, 1);
    EXPECT_TRUE(drain(in, 5000) == plain && in.getState() == ZipInStream::StreamComplete) << size;
    EXPECT_TRUE(in.getStatistics().hasIndex) << "also that of nothing";
  }
}

TEST(ZipPieces, ATargetThatFailsIsNoticedAPieceLaterAndAlwaysAtTheEnd) {
  const std::string plain = noisy(10 * pieceSize, 1);
  const std::size_t size = zippedInPieces(plain).size();
  for (const unsigned workers : {1U, 3U}) {
    for (const std::size_t room : {std::size_t{50}, std::size_t{104}, std::size_t{107},
                                   std::size_t{108}, 5 * pieceSize, size - 200, size - 1, size}) {
      Limited limited(room);
      std::ostream target(&limited);
      target.exceptions(room % 2 == 0 ? std::ios::goodbit : std::ios::badbit);
      ZipOutStream out(&target, 1, piecesBy(workers));
      std::size_t sinceFull = 0;
      for (std::size_t done = 0; done < plain.size() && out; done += 1024) {
        out.write(&plain[done], 1024);
        sinceFull += limited.isFull ? 1024 : 0;
      }
      EXPECT_LE(sinceFull, pieceSize + 1024) << room;
      out.close();
      EXPECT_EQ(out.good(), room == size) << room << " on " << workers;
      out.clear();
      EXPECT_TRUE(!out.put('x') && out.bad()) << "bytes vanish after the end";
    }
  }
}

TEST(ZipPieces, WhatIsAbandonedKeepsAllContentAndLooksCutShort) {
  for (const std::size_t size : {std::size_t{0}, std::size_t{5}, pieceSize, 7 * pieceSize + 5}) {
    std::stringstream file;
    ZipOutStream out(&file, 1, piecesBy(3));
    out.write(noisy(size, 2).data(), std::streamsize(size));
    out.abandon();
    EXPECT_EQ(file.str().substr(file.str().size() - 2), std::string("\0\x20", 2));
    ZipInStream in(&file, 1);
    EXPECT_TRUE(drain(in, 5000) == noisy(size, 2)) << size;
    EXPECT_EQ(in.getState(), ZipInStream::StreamCutShort);
  }
}

TEST(ZipPieces, AreReadFromAnyPlaceOnAnyNumberOfWorkers) {
  const std::string plain = noisy(5 * pieceSize + 77, 3);
  const std::string file = "in front " + zippedInPieces(plain);
  for (const unsigned workers : {1U, 2U, 16U}) {
    std::istringstream source(file);
    source.seekg(9);
    ZipInStream in(&source, 1);
    in.setWorkers(piecesBy(workers));
    EXPECT_TRUE(drain(in, std::size_t{1000} * workers) == plain);
    EXPECT_EQ(in.getState(), ZipInStream::StreamComplete);
    const Kyr::ZipStatistics statistics = in.getStatistics();
    EXPECT_EQ(statistics.pieces, 6U);
    EXPECT_EQ(statistics.plainBytes, plain.size());
    EXPECT_EQ(104 + 2 * statistics.blocks + statistics.compressedBytes + 2, statistics.offset);
    EXPECT_EQ(source.tellg(), std::streamoff(9 + statistics.offset)) << "not behind the end mark";
    in.clear();
    EXPECT_EQ(in.tellg(), std::streamoff(plain.size()));
    std::string read(5, '\0');
    for (const std::size_t at : {3 * pieceSize, pieceSize - 2, std::size_t{0}, plain.size() - 5}) {
      EXPECT_TRUE(in.seekg(std::streamoff(at)).read(read.data(), 5) && read == plain.substr(at, 5));
      EXPECT_EQ(in.tellg(), std::streamoff(at + 5)) << workers;
    }
    EXPECT_FALSE(in.seekg(1, std::ios::end)) << "a place behind the content";
    in.clear();
    EXPECT_FALSE(in.seekg(-1)) << "a place in front of it";
    in.clear();
    EXPECT_TRUE(in.seekg(0, std::ios::end) && in.get() == EOF && in.eof());
  }
  std::istringstream source(KyrTest::zipped(plain));
  ZipInStream in(&source, 1);
  EXPECT_EQ(in.tellg(), std::streamoff(-1)) << "without an index there are no places";
}

/// A reader of a changed file, and what it says and gives.
struct Reading {
  Reading(const std::string& file, unsigned workers, std::streamoff from = 0) : source(file) {
    ZipInStream in(&source, 1);
    in.setWorkers(
        piecesBy(workers, workers > 1 ? ZipPieces::FastestEngine : ZipPieces::ZlibEngine));
    in.seekg(from);
    plain = drain(in, 9000);
    state = in.getState();
    offset = in.getStatistics().offset;
  }
  std::istringstream source;
  std::string plain;
  ZipInStream::State_t state{};
  std::uint64_t offset{};
};

TEST(ZipPieces, ADamagedPieceGivesNoByteAndTheOthersTheirs) {
  const std::string plain = noisy(4 * pieceSize, 1);
  const std::string file = zippedInPieces(plain);
  const std::size_t packed = 262295;  // of each piece, which cannot be compressed
  ASSERT_EQ(file.size(), 108 + 4 * packed + 10 + 52 + 4 * entrySize);
  constexpr auto Complete = ZipInStream::StreamComplete, Damaged = ZipInStream::StreamDamaged;
  const struct {
    std::size_t at;
    ZipInStream::State_t state;
    std::uint64_t offset;
    std::size_t before;  // pieces that are read from the beginning
    std::size_t after;   // pieces that are read from the third on
    const char* fault;
  } rows[] = {
      {file.size(), Complete, 108 + 4 * packed + 10, 4, 2, "nothing"},
      {106, Damaged, 104, 4, 2, "the header of zlib is checked by nobody"},
      {108, Damaged, 108, 0, 2, "the first length of the first piece"},
      {108 + packed / 2, Damaged, 108, 0, 2, "a byte that decompresses to another"},
      {108 + packed - 1, Damaged, 108, 0, 2, "the last byte of a piece"},
      {108 + 3 * packed, Damaged, 108 + 3 * packed, 3, 1, "the last piece"},
      {108 + 4 * packed + 7, Damaged, 108 + 4 * packed, 4, 2, "the checksum of old readers"},
      {108 + 4 * packed + 8, Damaged, 108 + 4 * packed, 4, 2, "the end mark"},
  };
  for (const auto& row : rows) {
    std::string changed = file;
    changed[row.at] = char(changed[row.at] ^ (row.at < file.size() ? 2 : 0));
    for (const unsigned workers : {1U, 3U}) {
      const Reading reading(changed, workers);
      EXPECT_EQ(reading.state, row.state) << row.fault;
      EXPECT_EQ(reading.offset, row.offset) << row.fault;
      EXPECT_TRUE(reading.plain == plain.substr(0, row.before * pieceSize)) << row.fault;
      EXPECT_TRUE(Reading(changed, workers, 2 * pieceSize).plain ==
                  plain.substr(2 * pieceSize, row.after * pieceSize))
          << row.fault;
    }
  }
}

/// As RFC 1952 has it.
std::uint32_t crc32(const std::string& bytes) {
  std::uint32_t crc = 0xFFFFFFFFU;
  for (const char byte : bytes) {
    crc ^= static_cast<unsigned char>(byte);
    for (int bit = 0; bit < 8; ++bit) {
      crc = (crc >> 1U) ^ (crc % 2 * 0xEDB88320U);
    }
  }
  return ~crc;
}

TEST(ZipPieces, AnIndexThatDoesNotFitIsNone) {
  const std::string plain = noisy(300000);
  const std::string file = zippedInPieces(plain);
  const std::size_t index = file.size() - 52 - 2 * entrySize;
  const auto forged = [&](std::size_t at, char byte) {
    std::string changed = file;
    changed[index + at] = byte;
    const std::uint32_t crc = crc32(changed.substr(index, changed.size() - index - 4));
    for (unsigned i = 0; i < 4; ++i) {
      changed[changed.size() - 4 + i] = char(crc >> 8 * i);
    }
    return changed;
  };
  const std::tuple<std::string, bool, const char*> rows[] = {
      {forged(0, 'K'), true, "the forger has made a mistake"},
      {forged(0, 'k'), false, "another mark"},
      {forged(8, 2), false, "another version"},
      {forged(16, 1), false, "fewer pieces than it has room for"},
      {forged(23, 1), false, "more pieces than there is memory"},
      {forged(24, char(file[index + 24] ^ 1)), false, "the end elsewhere"},
      {forged(31, 127), false, "an end beyond all files"},
      {forged(32, 109), false, "a first piece elsewhere"},
      {forged(48, char(file[index + 48] ^ 1)), true, "a wrong place of the second is but damage"},
      {forged(55, 127), false, "pieces beyond all files"},
      {forged(43, 1), false, "a piece of 16 MiB"},
      {forged(64, 0), false, "a size that is none"},
      {file + "x", false, "something behind it"},
      {file.substr(0, index), false, "no index"},
      {std::string(file).replace(file.size() - 20, 8, 8, '\xFF'), false, "a size beyond all files"},
      {std::string(file).replace(index + 40, 1, 1, 'x'), false, "a wrong checksum"},
  };
  for (const auto& [bytes, isIndexed, fault] : rows) {
    std::istringstream source(bytes);
    ZipInStream in(&source, 1);
    EXPECT_EQ(in.getStatistics().pieces > 0, isIndexed) << fault;
    const std::string read = drain(in, 5000);
    EXPECT_TRUE(isIndexed ? plain.compare(0, read.size(), read) == 0 : read == plain) << fault;
  }
}

/// A source of zeros with bytes at both ends.
class Sparse : public std::streambuf {
 public:
  Sparse(std::string front, std::string back, std::int64_t size)
      : _front(std::move(front)), _back(std::move(back)), _size(size) {}

 protected:
  pos_type seekoff(off_type offset, std::ios::seekdir from, std::ios::openmode) override {
    return _at = offset + (from == std::ios::beg ? 0 : from == std::ios::cur ? _at : _size);
  }
  pos_type seekpos(pos_type place, std::ios::openmode) override { return _at = place; }
  std::streamsize xsgetn(char* room, std::streamsize count) override {
    std::streamsize done = 0;
    for (; done < count && _at < _size; ++_at) {
      const std::int64_t inBack = _at - (_size - std::int64_t(_back.size()));
      room[done++] = _at < std::int64_t(_front.size()) ? _front[std::size_t(_at)]
                     : inBack >= 0                     ? _back[std::size_t(inBack)]
                                                       : '\0';
    }
    return done;
  }

 private:
  std::string _front, _back;
  std::int64_t _size, _at = 0;
};

std::string number(std::uint64_t value, unsigned size) {
  std::string bytes;
  for (unsigned i = 0; i < size; ++i) {
    bytes += char(value >> 8 * i);
  }
  return bytes;
}

TEST(ZipPieces, PlacesBeyondFourGibibytes) {
  const std::string plain = noisy(300, 1);
  const std::string file = zippedInPieces(plain);
  const std::size_t indexPlace = file.size() - 52 - 16;
  const std::string real = file.substr(108, indexPlace - 108);  // the piece, the end, the end mark
  const std::uint64_t emptyPieces = 4200, plainSize = 1048576, packedSize = 1310720;
  const std::uint64_t place = 108 + emptyPieces * packedSize;
  std::string index = file.substr(indexPlace, 16) + number(emptyPieces + 1, 8);
  index += number(place + real.size() - 10, 8);
  for (std::uint64_t i = 0; i < emptyPieces; ++i) {
    index += number(108 + i * packedSize, 8) + number(plainSize, 4) + number(0, 4);
  }
  index += number(place, 8) + file.substr(indexPlace + 40, 8);
  index += number(index.size() + 20, 8) + file.substr(indexPlace, 8);
  index += number(crc32(index), 4);
  const std::string back = real + index;
  Sparse buffer(file.substr(0, 108), back, std::int64_t(place + back.size()));
  std::istream source(&buffer);
  ZipInStream in(&source, 1);
  in.seekg(std::int64_t(emptyPieces * plainSize));
  EXPECT_EQ(drain(in, 100), plain);
  EXPECT_EQ(in.getState(), ZipInStream::StreamComplete);
  EXPECT_EQ(in.getStatistics().offset, place + real.size());
}

TEST(ZipPieces, AnIndexCannotClaimMoreThanThereCanBe) {
  const std::string plain(300000, 'x');
  std::string file = zippedInPieces(plain);
  const std::size_t index = file.size() - 52 - 2 * entrySize;
  file.replace(index + 32 + 16 + 8, 4, number(1048576, 4));  // what 200 bytes cannot hold
  file.replace(file.size() - 4, 4, number(crc32(file.substr(index, file.size() - index - 4)), 4));
  const std::uint64_t size = std::uint64_t{1} << 46;
  const std::string claim = number(size / 2, 8) + file.substr(index, 8) + number(0, 4);
  Sparse sparse(KyrTest::zipped(plain), claim, std::int64_t(size));
  std::stringbuf small(file);
  for (std::streambuf* const buffer : std::initializer_list<std::streambuf*>{&sparse, &small}) {
    std::istream source(buffer);
    ZipInStream in(&source, 1);
    EXPECT_EQ(in.getStatistics().pieces, 0U);
    EXPECT_TRUE(drain(in, 5000) == plain);
  }
}

/// A source that moves as its kind allows.
class Moved : public std::stringbuf {
 public:
  enum Kind_t { TellsOnly, ByOffsetsOnly, ClaimsToMove };
  Moved(const std::string& bytes, Kind_t kind) : std::stringbuf(bytes), _kind(kind) {}

 protected:
  pos_type seekoff(off_type offset, std::ios::seekdir from, std::ios::openmode which) override {
    const bool isQuestion = offset == 0 && from == std::ios::cur;
    switch (_kind) {
      case TellsOnly:
        return isQuestion ? std::stringbuf::seekoff(0, from, which) : pos_type(off_type(-1));
      case ByOffsetsOnly:
        return std::stringbuf::seekoff(offset, from, which);
      case ClaimsToMove:  // as pipes of Windows do
        setg(eback(), in_avail() == 0 || gptr() == eback() ? gptr() : egptr(), egptr());
        return pos_type(off_type(0));
    }
    return pos_type(off_type(-1));
  }
  pos_type seekpos(pos_type, std::ios::openmode) override { return pos_type(off_type(-1)); }

 private:
  const Kind_t _kind;
};

TEST(ZipPieces, SourcesThatMoveInPartOnlyAreReadToTheirEnds) {
  const std::string plain = noisy(300000);
  for (const auto kind : {Moved::TellsOnly, Moved::ByOffsetsOnly, Moved::ClaimsToMove}) {
    for (const std::string& file : {KyrTest::zipped(plain), zippedInPieces(plain)}) {
      Moved buffer(file, kind);
      std::istream source(&buffer);
      ZipInStream in(&source, 1);
      EXPECT_TRUE(drain(in, 5000) == plain) << kind;
      EXPECT_EQ(in.getState(), ZipInStream::StreamComplete) << kind;
    }
  }
}

/// A source that fails at one place.
class Failing : public std::stringbuf {
 public:
  Failing(const std::string& bytes, std::size_t place, bool isThrowing)
      : std::stringbuf(bytes), _place(std::streamoff(place)), _isThrowing(isThrowing) {}
  bool isMended = false;
  std::size_t given = 0;

 protected:
  std::streamsize xsgetn(char* room, std::streamsize count) override {
    const std::streamoff at = gptr() - eback();
    if (!isMended && at <= _place && _place < at + count) {
      return _isThrowing ? throw std::ios_base::failure("a bad disk") : 0;
    }
    given += std::size_t(count);
    return std::stringbuf::xsgetn(room, count);
  }

 private:
  const std::streamoff _place;
  const bool _isThrowing;
};

TEST(ZipPieces, WhatTheSourceDoesNotGiveIsNoDamage) {
  const std::string plain = noisy(4 * pieceSize, 1);
  const std::string file = zippedInPieces(plain);
  const std::size_t packed = 262295, indexSize = 52 + 4 * entrySize;
  const struct {
    std::size_t at, before;  // pieces that are read
    std::uint64_t offset;
    bool isThrowing;
  } rows[] = {{108 + packed + 9, 1, 108 + packed, true},
              {108 + 3 * packed, 3, 108 + 3 * packed, false},
              {105, 4, 104, true},
              {108 + 4 * packed, 4, 108 + 4 * packed, false}};
  for (const auto& row : rows) {
    for (const unsigned workers : {1U, 3U}) {
      Failing buffer(file, row.at, row.isThrowing);
      std::istream source(&buffer);
      ZipInStream in(&source, 1);
      in.setWorkers(piecesBy(workers));
      EXPECT_TRUE(drain(in, 9000) == plain.substr(0, row.before * pieceSize)) << row.at;
      EXPECT_EQ(in.getState(), ZipInStream::StreamUnreadable) << row.at;
      EXPECT_EQ(in.getStatistics().offset, row.offset);
      buffer.isMended = true;
      in.clear();
      in.seekg(std::streamoff(row.before * pieceSize));
      EXPECT_TRUE(drain(in, 9000) == plain.substr(row.before * pieceSize)) << row.at;
      EXPECT_EQ(in.getState(), ZipInStream::StreamComplete) << row.at;
    }
    Failing buffer(file, row.at, row.isThrowing);
    std::istream source(&buffer);
    Kyr::ZipSalvage salvage(&source);
    EXPECT_EQ(buffer.given, 20 + indexSize + 104) << "the index is read twice";
    std::size_t number = 0;
    for (Kyr::ZipPart part; salvage.next(&part); ++number) {
      const bool isMissing = row.before < 4 && number == row.before;
      EXPECT_EQ(part.state, isMissing ? Kyr::ZipPart::Lost : Kyr::ZipPart::Checked);
      EXPECT_EQ(part.isUnreadable, isMissing) << row.at;
    }
    EXPECT_EQ(number, 4U);
  }
}

/// Writes and reads in a random order of operations, and compares with a string.
void runSequence(unsigned seed) {
  std::mt19937 engine(seed);
  const auto random = [&engine](std::size_t limit) { return unsigned(engine() % limit); };
  const unsigned workers = 1 + seed % 16;
  const std::string content = noisy(1 + random(seed % 4 == 0 ? 4 * pieceSize : 40000), 40);
  std::string model;
  const ZipPieces::Engine_t engines[] = {ZipPieces::ZlibEngine, ZipPieces::FastestEngine};
  std::stringstream file;
  ZipOutStream out(&file, 1, piecesBy(workers, engines[random(2)]));
  while (model.size() < content.size()) {
    const std::size_t longest = random(3) == 0 ? 300000 : 30;
    const std::size_t count = std::min<std::size_t>(random(longest), content.size() - model.size());
    out.write(&content[model.size()], std::streamsize(count));
    model.append(content, model.size(), count);
    random(4) == 0 ? out.flush() : out;
  }
  out.close();
  ASSERT_TRUE(out.good());
  ZipInStream in(&file, 1);
  in.setWorkers(piecesBy(random(17), engines[random(2)]));
  std::string room(300000, '\0');
  std::size_t at = 0;
  for (unsigned i = random(20); i > 0; --i) {
    if (random(3) == 0) {
      at = random(model.size() + 1);
      ASSERT_TRUE(in.seekg(std::streamoff(at)));
    }
    if (random(9) == 0) {
      in.setWorkers(piecesBy(1 + random(16)));
    }
    const std::size_t count = random(random(2) == 0 ? 40 : room.size());
    const std::size_t expected = std::min(count, model.size() - at);
    in.read(room.data(), std::streamsize(count));
    ASSERT_EQ(std::size_t(in.gcount()), expected) << at;
    ASSERT_TRUE(model.compare(at, expected, room, 0, expected) == 0) << at;
    ASSERT_EQ(in.eof(), expected < count);
    ASSERT_FALSE(in.bad());
    in.clear();
    at += expected;
    ASSERT_EQ(in.tellg(), std::streamoff(at));
  }
}

TEST(ZipPieces, RandomSequencesAgreeWithAModel) {
  for (unsigned seed = 0; seed < 1000 && !testing::Test::HasFailure(); ++seed) {
    SCOPED_TRACE(seed);
    runSequence(seed);
  }
}

}  // namespace
