#include "Fuzz.h"

#include <kyr/pack/KyrCompress.h>

#include <zlib.h>

namespace KyrFuzz {

namespace {

/// What zlib makes of a stream.
struct Inflated {
  std::string plain;
  bool complete = false;
};

Inflated inflated(std::string_view packed, bool gzip) {
  Inflated result;
  z_stream stream{};
  expect(inflateInit2(&stream, gzip ? 31 : 15) == Z_OK, "zlib starts");
  stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(packed.data()));
  stream.avail_in = static_cast<uInt>(packed.size());
  int state = Z_OK;
  while (state == Z_OK && result.plain.size() < mostPlain) {
    const std::size_t before = result.plain.size();
    result.plain.resize(before + 16384);
    stream.next_out = reinterpret_cast<Bytef*>(&result.plain[before]);
    stream.avail_out = 16384;
    state = ::inflate(&stream, Z_NO_FLUSH);
    result.plain.resize(before + 16384 - stream.avail_out);
  }
  inflateEnd(&stream);
  result.complete = state == Z_STREAM_END;
  return result;
}

/// Reading in pieces gives what reading at once gives.
void checkPieces(Kyr::Decompress::Format format, const Kyr::StructVector<unsigned char>& packed,
                 std::string_view plain, unsigned piece) {
  Kyr::Decompress decompress(format, packed);
  std::string room(piece, '\0');
  std::size_t at = 0;
  while (at + piece <= plain.size() && decompress.read(room.data(), piece)) {
    expect(plain.substr(at, piece) == room, "pieces are those of the whole");
    at += piece;
  }
  expect(at + piece > plain.size(), "all whole pieces are read");
}

void checkDecompress(bool gzip, std::string_view bytes, unsigned piece) {
  const auto format = gzip ? Kyr::Decompress::GzipFormat : Kyr::Decompress::ZlibFormat;
  const Inflated expected = inflated(bytes, gzip);
  if (expected.plain.size() >= mostPlain) {
    return;
  }
  const Kyr::StructVector<unsigned char> packed = vectorOf(bytes);
  Kyr::StructVector<unsigned char> plain = vectorOf("in front");
  expect(Kyr::Decompress(format, packed).read(&plain) == expected.complete,
         "what zlib finds good is good");
  expect(viewOf(plain) == "in front" + expected.plain, "zlib gives the same bytes");
  if (expected.complete) {
    checkPieces(format, packed, expected.plain, piece);
  }
}

/// zlib reads what was compressed, in whatever way.
std::string checkCompress(bool gzip, std::string_view plain, Choices& choices) {
  const auto format = gzip ? Kyr::Compress::GzipFormat : Kyr::Compress::ZlibFormat;
  Kyr::ZipPieces pieces;
  pieces.engine = choices.yes() ? Kyr::ZipPieces::FastestEngine : Kyr::ZipPieces::ZlibEngine;
  Kyr::StructVector<unsigned char> packed;
  const auto compress = choices.yes() ? std::make_unique<Kyr::Compress>(format, &packed, pieces)
                                      : std::make_unique<Kyr::Compress>(format, &packed);
  const std::size_t step = 1 + std::size_t{choices.upTo(255)} * 97;
  for (std::size_t at = 0; at < plain.size(); at += step) {
    const std::string_view part = plain.substr(at, step);
    compress->write(part.data(), static_cast<unsigned>(part.size()));
  }
  compress->flush();
  const Inflated back = inflated(viewOf(packed), gzip);
  expect(back.complete && back.plain == plain, "zlib reads what was compressed");
  return std::string(viewOf(packed));
}

}  // namespace

void harness(Choices input) {
  const bool gzip = input.yes();
  const unsigned piece = 1 + input.upTo(255);
  if (input.yes()) {
    checkDecompress(gzip, input.rest(), piece);
    return;
  }
  Choices choices(input.line());
  const std::string plain = input.repeated(1 + choices.upTo(255));
  std::string packed = checkCompress(gzip, plain, choices);
  while (!choices.atEnd()) {  // damaged here and there
    const std::size_t at = choices.place(packed);
    packed[at] = static_cast<char>(packed[at] ^ static_cast<char>(choices.upTo(255)));
  }
  checkDecompress(gzip, packed, piece);
}

}  // namespace KyrFuzz
