#include "pack/Bytes.h"

#include <kyr/pack/KyrZipSalvage.h>

using Kyr::ZipPart;
using namespace KyrTest;

namespace {

constexpr std::size_t pieceSize = 262144;
constexpr std::size_t entrySize = 16;  // of a piece in the index

/// What is left of a file.
struct Salvaged {
  explicit Salvaged(const std::string& file, const std::string& plain, unsigned workers = 1)
      : source(file), salvage(&source) {
    salvage.setWorkers(KyrTest::piecesBy(workers));
    std::uint64_t end = salvage.hasIndex() ? 108 : 104;
    for (ZipPart part; salvage.next(&part);) {
      EXPECT_LE(end, part.offset) << "parts are not in order";
      end = part.offset + part.size;
      EXPECT_EQ(part.bytes.size(), part.state == ZipPart::Lost ? 0 : part.plainSize);
      known += part.isSizeKnown ? std::size_t(part.plainSize) : 0;
      lost += part.state == ZipPart::Lost;
      wrong += part.state == ZipPart::Checked &&
               plain.compare(std::size_t(part.plainOffset), part.bytes.size(), part.bytes.data(),
                             part.bytes.size()) != 0;
      checked += part.state == ZipPart::Checked ? part.bytes.size() : 0;
      all.append(part.bytes.data(), part.bytes.size());
    }
    EXPECT_FALSE(salvage.next(std::make_unique<ZipPart>().get())) << "the end is not final";
  }
  std::istringstream source;
  Kyr::ZipSalvage salvage;
  std::size_t known = 0, checked = 0, lost = 0, wrong = 0;
  std::string all;
};

TEST(ZipSalvage, OneBitCostsOnePiece) {
  const std::string plain = noisy(8 * pieceSize);
  std::string file = zippedInPieces(plain);
  std::mt19937 random(3);
  std::size_t checked = 0;
  for (int i = 0; i < 120; ++i) {
    char& byte = file[random() % file.size()];
    const char before = byte;
    byte = char(byte ^ (1U << random() % 8));
    const Salvaged result(file, plain, i % 3 + 1);
    byte = before;
    EXPECT_EQ(result.wrong, 0U) << i;
    EXPECT_TRUE(!result.salvage.hasIndex() || result.known == plain.size())
        << "a loss without name";
    EXPECT_TRUE(result.lost <= 1 && result.salvage.isWhole() == (result.lost == 0)) << i;
    checked += result.checked;
  }
  EXPECT_GE(checked, plain.size() / 100 * 85 * 120);
}

TEST(ZipSalvage, WhatIsNotDamagedComesBackWithoutAnIndex) {
  const std::string plain = noisy(8 * pieceSize, 1);  // of pieces that lie in the file as they are
  const std::string file = zippedInPieces(plain);
  const std::string open = file.substr(0, file.size() - 52 - 8 * entrySize);
  const std::size_t packed = 262295;  // of each piece
  const auto place = [](std::size_t piece) { return 108 + piece * packed; };
  const auto with = [](std::string bytes, std::size_t at, const std::string& other) {
    return bytes.replace(at, other.size(), other);
  };
  const std::string noLength("\0\0", 2), badLength("\xFF\xFF"), noBlock("\7", 1);
  std::string hostile = file.substr(0, 108);
  for (int i = 0; i < 1000; ++i) {
    hostile += std::string("\0\0\xFF\xFF\5\0\7", 7);
  }
  const struct {
    std::string file;
    std::size_t fewest;  // bytes of content
    std::size_t lost;
    bool isWhole;
    const char* fault;
  } rows[] = {
      {open, 8 * pieceSize, 0, true, "only the index is missing"},
      {with(open, open.size() - 3, "?"), 8 * pieceSize, 1, false, "the checksum of all"},
      {with(open, place(3), badLength), 7 * pieceSize, 1, false, "a length"},
      {with(open, place(3) + 8194, noLength), 7 * pieceSize, 1, false, "an early end mark"},
      {with(open, place(3) + 2, noBlock), 7 * pieceSize, 1, false, "what deflate begins with"},
      {with(open, place(0) + 2, noBlock), 7 * pieceSize, 1, false, "of the first piece"},
      {with(open, 106, "?"), 7 * pieceSize, 1, false, "the header of zlib"},
      {with(with(open, place(6), badLength), place(2), badLength), 6 * pieceSize, 2, false, "two"},
      {with(open, place(7) + 2, noBlock), 7 * pieceSize, 1, false, "the last piece"},
      {open.substr(0, place(5) + 9000), 5 * pieceSize, 1, false, "the end is missing"},
      {with(open.substr(0, place(5) + 9000), place(3), badLength), 4 * pieceSize, 2, false, "both"},
      {KyrTest::zipped(plain).substr(0, 200000), 150000, 1, false, "a stream without pieces"},
      {with(KyrTest::zipped(plain), 200000, "damage"), 150000, 1, false, "or with damage"},
      {hostile, 0, 1, false, "places where nothing but a loss begins"},
      {"Kyr", 0, 0, false, "a header that is cut short"},
  };
  for (const auto& row : rows) {
    const Salvaged result(row.file, plain);
    EXPECT_EQ(result.checked, 0U) << row.fault;
    EXPECT_GE(result.all.size(), row.fewest) << row.fault;
    EXPECT_EQ(result.lost, row.lost) << row.fault;
    EXPECT_EQ(result.salvage.isWhole(), row.isWhole) << row.fault;
    EXPECT_EQ(result.salvage.getHeaderError() != 0, row.file.size() == 3) << row.fault;
    EXPECT_TRUE(row.fewest == 0 || result.all.substr(0, 10000) == plain.substr(0, 10000) ||
                result.all.substr(0, 10000) == plain.substr(pieceSize, 10000))
        << row.fault;
    EXPECT_TRUE(row.file.size() < place(7) + 3000 ||
                result.all.substr(result.all.size() - 10000) ==
                    plain.substr(plain.size() - 10000) ||
                row.file.substr(place(7) + 2, 1) == noBlock)
        << row.fault;
  }
}

TEST(ZipSalvage, PiecesBeginAlsoBehindEndsThatTwoBlocksShare) {
  std::size_t shared = 0;
  const std::string noise = noisy(3 * pieceSize, 1);
  for (std::size_t same = 112; same < 132; ++same) {
    std::string plain = noise;
    plain.replace(pieceSize, same, same, 'x');
    const std::string file = zippedInPieces(plain);
    const std::string open = file.substr(0, file.size() - 52 - 3 * entrySize);
    const std::size_t third = open.size() - 10 - 262295;  // where it begins
    const std::size_t last =
        (third - 108 - 262295) % 8194;  // of the block in front, and its length
    if (last >= 3 && last <= 5) {
      const Salvaged result(std::string(open).replace(108 + 262295, 2, "\xFF\xFF"), plain);
      EXPECT_TRUE(result.all == plain.substr(0, pieceSize) + plain.substr(2 * pieceSize)) << last;
      ++shared;
    }
  }
  EXPECT_GE(shared, 3U) << "no end was shared";
}

TEST(ZipSalvage, EverythingBeforeACutComesBack) {
  const std::string plain = noisy(5 * pieceSize, 5);
  const std::string file = zippedInPieces(plain);
  std::size_t before = 0;
  for (std::size_t size = 110; size < file.size(); size += file.size() / 40) {
    const Salvaged result(file.substr(0, size), plain);
    EXPECT_TRUE(plain.compare(0, result.all.size(), result.all) == 0) << size;
    EXPECT_GE(result.all.size(), before) << "a longer file gives less";
    EXPECT_GE(result.all.size() + std::size_t{2} * 8192, plain.size() * size / file.size()) << size;
    EXPECT_FALSE(result.salvage.isWhole());
    before = result.all.size();
  }
}

TEST(ZipSalvage, ABadHeaderDoesNotMatterWithAnIndex) {
  const std::string plain = noisy(700000);
  const Salvaged result(zippedInPieces(plain).replace(0, 60, 60, '?'), plain);
  EXPECT_TRUE(result.all == plain && result.salvage.isWhole());
  EXPECT_EQ(result.salvage.getHeaderErrorText().toStdString(), "invalid zip stream header");
  EXPECT_EQ(result.salvage.getPieceCount(), 3U);
}

}  // namespace
