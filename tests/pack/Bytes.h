/// \file
/// Test data and short forms for the pack room.
#pragma once

#include "support/Support.h"

#include <kyr/pack/KyrZipStream.h>

namespace KyrTest {

/// Bytes of which every 1st to \a step-th, by chance, is random: noisy(n, 1) is all noise.
inline std::string noisy(std::size_t size, unsigned step = 8) {
  std::mt19937 random(1);
  std::string bytes(size, 'k');
  for (std::size_t i = 0; i < size; i += 1 + random() % step) {
    bytes[i] = static_cast<char>(random());
  }
  return bytes;
}

/// A zip stream file in memory.
inline std::string zipped(const std::string& plain, unsigned fileVersion = 1) {
  std::ostringstream file;
  Kyr::ZipOutStream(&file, fileVersion).write(plain.data(), std::streamsize(plain.size()));
  return file.str();
}

inline Kyr::ZipPieces piecesBy(unsigned workers,
                               Kyr::ZipPieces::Engine_t engine = Kyr::ZipPieces::ZlibEngine) {
  Kyr::ZipPieces pieces;
  pieces.workers = workers;
  pieces.engine = engine;
  return pieces;
}

/// The same in pieces.
inline std::string zippedInPieces(const std::string& plain, const Kyr::ZipPieces& pieces = {}) {
  std::ostringstream file;
  Kyr::ZipOutStream(&file, 1, pieces).write(plain.data(), std::streamsize(plain.size()));
  return file.str();
}

/// Writes in parts of a size; 0 puts single bytes, 1 goes the way of any output stream.
/// \param pieces null for a stream without
/// \return the file, whose header tells no time
inline std::string writtenIn(const std::string& plain, std::size_t part,
                             const Kyr::ZipPieces* pieces = nullptr) {
  std::ostringstream file;
  const auto out = pieces ? std::make_unique<Kyr::ZipOutStream>(&file, 1, *pieces)
                          : std::make_unique<Kyr::ZipOutStream>(&file, 1);
  for (std::size_t done = 0; done < plain.size(); done += std::max<std::size_t>(part, 1)) {
    const auto length = std::streamsize(std::min(part, plain.size() - done));
    part == 0   ? out->put(plain[done])
    : part == 1 ? out->std::ostream::write(&plain[done], 1)
                : out->write(&plain[done], length);
    if (pieces && part > 1) {
      out->flush();
    }
  }
  out->close();
  EXPECT_TRUE(out->good());
  return file.str().replace(64, 4, "time");
}

/// Everything that a stream delivers, damage or not, read in pieces of a size; 0 reads single
/// bytes.
inline std::string drain(Kyr::ZipInStream& in, std::size_t piece) {
  std::string all;
  std::string room(piece + 1, '\0');
  do {
    in.clear();
    piece == 0 ? in.get(room[0]) : in.read(room.data(), std::streamsize(piece));
    all.append(room, 0, static_cast<std::size_t>(in.gcount()));
  } while (!in.eof());
  return all;
}

/// Takes as many bytes as it has room for, then no more; tells when it first took less.
class Limited : public std::streambuf {
 public:
  explicit Limited(std::size_t room) : _room(room) {}
  std::string taken;
  bool isFull = false;

 protected:
  int_type overflow(int_type character) override {
    const char byte = traits_type::to_char_type(character);
    return xsputn(&byte, 1) == 1 ? character : traits_type::eof();
  }
  std::streamsize xsputn(const char* bytes, std::streamsize count) override {
    const auto fitting = std::min(_room - taken.size(), static_cast<std::size_t>(count));
    taken.append(bytes, fitting);
    isFull = isFull || fitting < static_cast<std::size_t>(count);
    return static_cast<std::streamsize>(fitting);
  }

 private:
  const std::size_t _room;
};

}  // namespace KyrTest
