/// \file
/// Test data and short forms for the pack room.
#pragma once

#include <kyr/pack/KyrZipStream.h>

#include <random>
#include <sstream>
#include <string>

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

}  // namespace KyrTest
