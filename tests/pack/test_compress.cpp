#include <kyr/pack/KyrCompress.h>

#include "pack/Bytes.h"

using namespace Kyr;
using namespace KyrTest;

namespace {

constexpr std::size_t chunk = 262144;

std::string textOf(const Bytes& bytes) {
  return {bytes.begin(), bytes.end()};
}

bool decompresses(const std::string& packed, int format, std::string* plain) {
  const Bytes in = KyrTest::bytesOf(QByteArray::fromStdString(packed));
  Bytes out(6, 'b');
  const bool good = Decompress(static_cast<Decompress::Format>(format), in).read(&out);
  EXPECT_EQ(textOf(out).substr(0, 6), "bbbbbb") << "reading appends";
  *plain = textOf(out).substr(6);
  return good;
}

/// \param workers 0 when it is not done in pieces
std::unique_ptr<Compress> makeCompress(Compress::Format format, Bytes* out, unsigned workers) {
  return workers == 0 ? std::make_unique<Compress>(format, out)
                      : std::make_unique<Compress>(format, out, KyrTest::piecesBy(workers));
}

TEST(Compress, WhatWasWrittenComesBack) {
  const std::tuple<std::string, std::size_t, const char*> rows[] = {
      {"", 1, "no data is a stream too"},
      {noisy(9000), 1, "the input is used up byte by byte"},
      {noisy(chunk - 99, 1), chunk, "finishing crosses the end of the first chunk"},
      {noisy(5 * chunk, 1), 3000, "chunks fill up within a write"},
      {std::string(20 * chunk, '\0'), 20 * chunk, "output that is much larger than the input"},
  };
  std::map<std::tuple<std::string, int, bool>, std::string> streams;
  for (const auto& [plain, piece, fault] : rows) {
    for (const auto& [format, workers] :
         {std::pair(0, 0U), {1, 0U}, {7, 0U}, {0, 1U}, {1, 1U}, {0, 5U}, {1, 3U}}) {
      Bytes out(3, 'x');
      const auto made = makeCompress(static_cast<Compress::Format>(format), &out, workers);
      Compress& compress = *made;
      EXPECT_EQ(out.capacity(), 0U) << "replaced";
      for (std::size_t done = 0; done < plain.size(); done += piece) {
        const auto length = static_cast<unsigned>(std::min(piece, plain.size() - done));
        compress.write(&plain[done], length);
        EXPECT_TRUE(workers > 0 || out.size() % chunk == 0) << "an unfinished chunk shows";
      }
      compress.write(nullptr, 0);
      EXPECT_EQ(out.capacity(), out.size());
      const std::string packed = textOf(out);
      EXPECT_EQ(packed.substr(0, 2), format == 0 ? "\x78\1" : "\x1F\x8B") << "level or wrapper";
      compress.flush();
      EXPECT_THROW(compress.write("x", 1), std::bad_alloc);
      EXPECT_EQ(textOf(out), packed) << "a finished stream changed";
      std::string back;
      EXPECT_TRUE(decompresses(packed + "behind", format, &back)) << fault;
      EXPECT_TRUE(back == plain) << fault;
      const auto first = streams.try_emplace({fault, format, workers > 0}, packed).first;
      EXPECT_TRUE(first->second == packed) << "not the same for " << workers << ": " << fault;
      EXPECT_FALSE(decompresses(packed, format == 0 ? 1 : 0, &back)) << "the other format";
    }
  }
}

TEST(Compress, AFailureIsFinal) {
  for (const unsigned workers : {0U, 2U}) {
    Bytes out;
    {
      const auto compress = makeCompress(Compress::ZlibFormat, &out, workers);
      compress->write("good", 4);
      EXPECT_THROW(compress->write(nullptr, 1), std::bad_alloc);
      EXPECT_THROW(compress->write("more", 4), std::bad_alloc);
      EXPECT_THROW(compress->flush(), std::bad_alloc);
    }
    EXPECT_TRUE(out.empty()) << "a stream with a hole was finished";
  }
}

TEST(Decompress, FillsBuffersAndTheRestGoesIntoAVector) {
  const std::string plain = noisy(50000);
  Bytes in;
  Compress(&in).write(plain.data(), 50000);  // the destructor finishes
  Decompress decompress(in);
  std::string room(50001, '\0');
  Bytes rest;
  EXPECT_TRUE(decompress.read(room.data(), 30000));
  EXPECT_TRUE(decompress.read(&rest));
  EXPECT_EQ(room.substr(0, 30000) + textOf(rest), plain);
  EXPECT_FALSE(decompress.read(room.data(), 1)) << "nothing is left";
  EXPECT_FALSE(Decompress(in).read(room.data(), 50001)) << "one byte too many is not filled";
}

}  // namespace
