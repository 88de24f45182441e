#include <kyr/pack/KyrCompress.h>

#include "pack/Bytes.h"

#include <gtest/gtest.h>

#include <new>

using Kyr::Compress;
using Kyr::Decompress;
using KyrTest::noisy;

namespace {

using Bytes = Kyr::StructVector<unsigned char>;
constexpr std::size_t chunk = 262144;

std::string textOf(const Bytes& bytes) {
  return {bytes.begin(), bytes.end()};
}

bool decompresses(const std::string& packed, int format, std::string* plain) {
  Bytes in;
  in.append(reinterpret_cast<const unsigned char*>(packed.data()), packed.size());
  Bytes out(6, 'b');
  const bool good = Decompress(static_cast<Decompress::Format>(format), in).read(&out);
  EXPECT_EQ(textOf(out).substr(0, 6), "bbbbbb") << "reading appends";
  *plain = textOf(out).substr(6);
  return good;
}

TEST(Compress, WhatWasWrittenComesBack) {
  struct {
    std::string plain;
    std::size_t piece;
    const char* fault;
  } const rows[] = {
      {"", 1, "no data is a stream too"},
      {noisy(9000), 1, "the input is used up byte by byte"},
      {noisy(chunk - 99, 1), chunk, "finishing crosses the end of the first chunk"},
      {noisy(5 * chunk, 1), 3000, "chunks fill up within a write"},
      {std::string(20 * chunk, '\0'), 20 * chunk, "output that is much larger than the input"},
  };
  for (const auto& row : rows) {
    for (const int format : {0, 1, 7}) {
      Bytes out(3, 'x');
      Compress compress(static_cast<Compress::Format>(format), &out);
      EXPECT_EQ(out.capacity(), 0U) << "replaced";
      for (std::size_t done = 0; done < row.plain.size(); done += row.piece) {
        const auto length = static_cast<unsigned>(std::min(row.piece, row.plain.size() - done));
        compress.write(&row.plain[done], length);
        EXPECT_EQ(out.size() % chunk, 0U) << "an unfinished chunk shows";
      }
      compress.write(nullptr, 0);
      EXPECT_EQ(out.capacity(), out.size());
      const std::string packed = textOf(out);
      EXPECT_EQ(packed.substr(0, 2), format == 0 ? "\x78\1" : "\x1F\x8B") << "level or wrapper";
      compress.flush();
      EXPECT_THROW(compress.write("x", 1), std::bad_alloc);
      EXPECT_EQ(textOf(out), packed) << "a finished stream changed";
      std::string back;
      EXPECT_TRUE(decompresses(packed + "behind", format, &back)) << row.fault;
      EXPECT_TRUE(back == row.plain) << row.fault;
      EXPECT_FALSE(decompresses(packed, format == 0 ? 1 : 0, &back)) << "the other format";
    }
  }
}

TEST(Compress, AFailureIsFinal) {
  Bytes out;
  {
    Compress compress(&out);
    compress.write("good", 4);
    EXPECT_THROW(compress.write(nullptr, 1), std::bad_alloc);
    EXPECT_THROW(compress.write("more", 4), std::bad_alloc);
    EXPECT_THROW(compress.flush(), std::bad_alloc);
  }
  EXPECT_TRUE(out.empty()) << "a stream with a hole was finished";
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

TEST(Decompress, CutInputGivesItsPrefix) {
  const std::string plain = noisy(1500);
  Bytes out;
  Compress(&out).write(plain.data(), 1500);
  const std::string packed = textOf(out);
  std::string back;
  for (std::size_t size = 0; size < packed.size(); ++size) {
    EXPECT_FALSE(decompresses(packed.substr(0, size), 0, &back)) << size;
    EXPECT_EQ(back, plain.substr(0, back.size())) << size;
  }
  EXPECT_EQ(back.size(), 1500U) << "the decoded prefix is lost";
  EXPECT_FALSE(decompresses(packed.substr(0, packed.size() - 1) + '?', 0, &back)) << "checksum";
}

}  // namespace
