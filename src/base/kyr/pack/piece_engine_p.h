/// \file
/// Deflate and inflate of whole pieces, and the checksums of what is in them.
#pragma once

#include <kyr/pack/KyrZipPieces.h>

#include <cstddef>
#include <cstdint>
#include <memory>

namespace Kyr {

/// Plain bytes of every piece but the last of its stream.
///
/// A piece needs nothing of those before it, which costs: pieces of 256 KiB make scan data larger
/// by 0.13 to 0.71 %, those of 1 MiB by 0.03 to 0.24 %. But one wrong bit loses a whole one.
constexpr std::size_t pieceSize = 262144;

/// The end of a stream whose pieces are all written: an empty final block of deflate.
constexpr unsigned char emptyFinalBlock[] = {0x03, 0x00};

/// Checksums that streams carry; by which engine they were computed does not matter.
struct Checksums {
  std::uint32_t adler = 1;  ///< Adler-32 of RFC 1950
  std::uint32_t crc = 0;    ///< CRC-32 of RFC 1952
};
/// The checksums of two things in a row.
/// \param sizeOfNext below 2^31
Checksums combined(const Checksums& first, const Checksums& next, std::size_t sizeOfNext);
/// The checksums of bytes, by the fastest library that there is: the results are the same.
Checksums plainChecksums(const unsigned char* bytes, std::size_t size) noexcept;
/// The CRC-32 of bytes, alike.
std::uint32_t plainCrc(const unsigned char* bytes, std::size_t size) noexcept;

/// Compresses pieces.
class PieceDeflater {
 public:
  /// \throws std::bad_alloc
  static std::unique_ptr<PieceDeflater> make(ZipPieces::Engine_t engine);
  PieceDeflater() = default;
  PieceDeflater(const PieceDeflater&) = delete;
  PieceDeflater& operator=(const PieceDeflater&) = delete;
  virtual ~PieceDeflater() = default;

  /// The room that pack() needs.
  static constexpr std::size_t roomFor(std::size_t size) { return size + size / 16 + 1024; }
  /// Makes blocks of deflate that use no bytes of earlier ones, the last of them an empty stored
  /// block that ends with a whole byte (00 00 FF FF). So pieces can stand one behind the other.
  /// \param room for roomFor(size) bytes
  /// \return the bytes that it takes; 0 on failure
  virtual std::size_t pack(const unsigned char* plain, std::size_t size,
                           unsigned char* room) noexcept = 0;
  virtual Checksums checksumsOf(const unsigned char* plain, std::size_t size) noexcept = 0;
};

/// Decompresses pieces.
class PieceInflater {
 public:
  /// \throws std::bad_alloc
  static std::unique_ptr<PieceInflater> make(ZipPieces::Engine_t engine);
  PieceInflater() = default;
  PieceInflater(const PieceInflater&) = delete;
  PieceInflater& operator=(const PieceInflater&) = delete;
  virtual ~PieceInflater() = default;

  /// \param packed gets an empty final block behind its \a packedSize bytes, for which there must
  ///        be room
  /// \return whether these are whole blocks of deflate that make exactly \a plainSize bytes
  bool unpack(unsigned char* packed, std::size_t packedSize, unsigned char* room,
              std::size_t plainSize) noexcept;
  virtual std::uint32_t crcOf(const unsigned char* plain, std::size_t size) noexcept = 0;

 private:
  virtual bool unpackFinished(const unsigned char* packed, std::size_t packedSize,
                              unsigned char* room, std::size_t plainSize) noexcept = 0;
};

}  // namespace Kyr
