#include "Fuzz.h"

#include <kyr/pack/KyrZipSalvage.h>
#include <kyr/pack/KyrZipStream.h>

#include <sstream>
#include <vector>

namespace KyrFuzz {

namespace {

using Kyr::ZipInStream;
using Kyr::ZipPart;

/// The header stands in a file of every second; only its time differs.
std::string written(std::string_view plain, bool inPieces, unsigned engine) {
  std::ostringstream file;
  Kyr::ZipPieces pieces;
  pieces.engine = static_cast<Kyr::ZipPieces::Engine_t>(engine);
  const auto out = inPieces ? std::make_unique<Kyr::ZipOutStream>(&file, 1, pieces)
                            : std::make_unique<Kyr::ZipOutStream>(&file, 1);
  out->write(plain.data(), static_cast<std::streamsize>(plain.size()));
  out->close();
  expect(bool(*out), "memory takes everything");
  return file.str();
}

struct Reading {
  std::string bytes;
  ZipInStream::State_t state;
  bool hasIndex;
};

/// Everything that is delivered, damage or not.
Reading drained(const std::string& file, std::size_t piece) {
  std::istringstream source(file);
  ZipInStream in(&source, 1);
  Reading reading;
  std::string room(piece, '\0');
  do {
    in.clear();
    in.read(room.data(), static_cast<std::streamsize>(piece));
    reading.bytes.append(room, 0, static_cast<std::size_t>(in.gcount()));
  } while (!in.eof() && reading.bytes.size() < mostPlain);
  reading.state = in.getState();
  reading.hasIndex = in.getStatistics().hasIndex;
  return reading;
}

struct Salvaged {
  std::vector<ZipPart> parts;
  bool isWhole = false;
  bool hasIndex = false;
};

Salvaged salvaged(const std::string& file) {
  std::istringstream source(file);
  Kyr::ZipSalvage salvage(&source);
  Salvaged result;
  std::size_t size = 0;
  ZipPart part;
  while (size < mostPlain && salvage.next(&part)) {
    expect(part.state != ZipPart::Lost || part.bytes.empty(), "what is lost has no bytes");
    expect(part.offset <= file.size(), "a part is of the file");
    expect(part.state == ZipPart::Lost || part.bytes.size() == part.plainSize,
           "a part has the size that it says");
    size += part.bytes.size();
    result.parts.push_back(part);
  }
  result.isWhole = salvage.isWhole();
  result.hasIndex = salvage.hasIndex();
  return result;
}

/// Of bytes that may be anything, all ways of reading say the same.
void checkAgreement(const std::string& file, std::size_t piece) {
  const Reading whole = drained(file, 65536);
  const Reading pieces = drained(file, piece);
  const std::size_t common = std::min(whole.bytes.size(), pieces.bytes.size());
  expect(whole.bytes.compare(0, common, pieces.bytes, 0, common) == 0,
         "pieces are those of the whole");
  if (whole.bytes.size() < mostPlain && pieces.bytes.size() < mostPlain) {
    expect(
        common == std::max(whole.bytes.size(), pieces.bytes.size()) && whole.state == pieces.state,
        "pieces end as the whole");
    const Salvaged salvage = salvaged(file);
    std::string bytes;
    for (const ZipPart& part : salvage.parts) {
      bytes.append(part.bytes.data(), part.bytes.size());
    }
    const bool isComplete = whole.state == ZipInStream::StreamComplete;
    expect(salvage.isWhole == isComplete, "salvage and reader agree on what is whole");
    expect(!isComplete || bytes == whole.bytes, "salvage gives what the reader gives");
  }
  const std::vector<char> start(file.begin(), file.end());
  std::vector<char> plain;
  if (ZipInStream::decompressHeader(start, plain, 5000)) {
    const std::size_t shared = std::min(plain.size(), whole.bytes.size());
    expect(plain.size() <= 5000 && whole.bytes.compare(0, shared, plain.data(), shared) == 0,
           "the beginning is that of the content");
  }
}

/// What was written comes back whole, and of a damaged file nothing but what was written.
void checkRoundTrip(const std::string& plain, Choices& choices, std::size_t piece) {
  const bool inPieces = choices.yes();
  std::string file = written(plain, inPieces, choices.upTo(1));
  if (choices.atEnd()) {
    const Reading reading = drained(file, piece);
    expect(reading.bytes == plain && reading.state == ZipInStream::StreamComplete &&
               reading.hasIndex == inPieces,
           "what was written is read");
    expect(salvaged(file).isWhole, "a whole stream is salvaged whole");
    return;
  }
  for (unsigned i = 0; i < 2 && !choices.atEnd(); ++i) {
    const std::size_t at = choices.place(file);
    if (i == 1 && choices.yes()) {
      file.resize(at);
      break;
    }
    file[at] = static_cast<char>(file[at] ^ static_cast<char>(choices.upTo(255)));
  }
  const Reading reading = drained(file, piece);
  expect(reading.state != ZipInStream::StreamComplete || reading.bytes == plain,
         "what a good checksum ends is what was written");
  expect(!reading.hasIndex || plain.compare(0, reading.bytes.size(), reading.bytes) == 0,
         "no wrong byte is delivered of a stream with an index");
  const Salvaged salvage = salvaged(file);
  for (const ZipPart& part : salvage.parts) {
    const std::string_view bytes(part.bytes.data(), part.bytes.size());
    expect(
        part.state != ZipPart::Checked || plain.compare(part.plainOffset, bytes.size(), bytes) == 0,
        "what was checked is what was written");
    expect(!salvage.hasIndex || part.state != ZipPart::Unchecked, "with an index all is checked");
  }
}

}  // namespace

void harness(Choices input) {
  const unsigned mode = input.upTo(2);
  const std::size_t piece = 1 + std::size_t{input.upTo(255)} * 13;
  if (mode == 0) {
    checkAgreement(std::string(input.rest()), piece);
  } else if (mode == 1) {
    static const std::string header = written({}, false, 0).substr(0, 104);
    checkAgreement(header + std::string(input.rest()), piece);
  } else {
    Choices choices(input.line());
    const std::size_t times = choices.upTo(255);
    const unsigned factor = choices.upTo(31);
    // Most are small: what several pieces show takes a hundred times as long.
    const std::size_t most = factor < 29 ? std::size_t{1} << 15U : mostPlain;
    checkRoundTrip(input.repeated(1 + times * factor, most), choices, piece);
  }
}

}  // namespace KyrFuzz
