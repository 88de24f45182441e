/// \file
/// Deflate and inflate of whole buffers in memory.
#pragma once

#include <kyr/core/KyrPlatform.h>
#include <kyr/core/KyrStructVector.h>
#include <kyr/pack/KyrZipPieces.h>

#include <cstddef>
#include <memory>

namespace Kyr {

class DeflateEngine;
class InflateEngine;
class PieceStream;

/// Compresses what it is given piece by piece into a byte vector, at zlib's fastest level.
///
/// The vector is the caller's. It holds the complete compressed stream after flush(); until then
/// it holds whole pieces of 256 KiB, and what lies behind its size belongs to this object, so
/// leave it alone. Formats: zlib is RFC 1950, gzip is RFC 1952.
/// \code
/// StructVector<unsigned char> packed;
/// Compress compress(&packed);
/// compress.write(room, sizeof room);
/// compress.flush();  // from here on packed is whole
/// \endcode
/// Told who compresses, it does so in pieces that need nothing of each other, on as many
/// processors. The result is one stream or one gzip member as well, a little larger and the same
/// for every number of workers; until flush() the vector holds those pieces that are done.
/// \threadsafety one thread at a time
class KYR_EXPORT Compress {
 public:
  /// The wrapper around the compressed data; any value but 0 means gzip.
  enum Format : int {
    ZlibFormat = 0,  ///< RFC 1950
    GzipFormat = 1   ///< RFC 1952
  };

  /// Compresses in zlib format.
  /// \param out is emptied and gives its memory back; must outlive this object
  /// \throws std::bad_alloc
  explicit Compress(StructVector<unsigned char>* out);
  /// Compresses in the given format; otherwise as the constructor above.
  Compress(Format format, StructVector<unsigned char>* out);
  /// Compresses in pieces; otherwise as the constructor above.
  Compress(Format format, StructVector<unsigned char>* out, const ZipPieces& pieces);
  /// Finishes the stream as flush() does, unless that was done or an earlier call failed.
  /// A failure stays unnoticed here; call flush() to learn of it.
  ~Compress();
  Compress(const Compress&) = delete;
  Compress& operator=(const Compress&) = delete;

  /// Compresses \a length bytes; a length of 0 finishes the stream, as flush().
  /// \throws std::bad_alloc when memory is short, when the stream is finished already, and
  ///         after an earlier failure; the vector keeps what was in it
  void write(const void* data, unsigned int length);

  /// Finishes the stream; further calls do nothing.
  /// \throws std::bad_alloc when memory is short, and after an earlier failure
  void flush();

 private:
  enum State_t { Open, Finished, Failed };
  KYR_HIDDEN void compress(const void* data, unsigned length, bool finish);
  KYR_HIDDEN bool toPieces(const void* data, unsigned length, bool finish);
  KYR_HIDDEN bool toEngine(const void* data, unsigned length, bool finish);
  KYR_HIDDEN void provideRoom();
  KYR_HIDDEN void commit();

  StructVector<unsigned char>* _out;
  std::unique_ptr<DeflateEngine> _engine;
  std::unique_ptr<PieceStream> _pieces;  ///< in place of the engine
  State_t _state = Open;
};

/// Decompresses a byte vector, into buffers of the caller's or into another vector.
///
/// Reads straight from the vector's memory: it must stay unchanged as long as this object lives.
/// What follows the end of the compressed stream is ignored.
/// \code
/// StructVector<unsigned char> plain;
/// if (!Decompress(packed).read(&plain)) {
///   throw Exception("damaged");
/// }
/// \endcode
/// \threadsafety one thread at a time
class KYR_EXPORT Decompress {
 public:
  /// The wrapper around the compressed data; any value but 0 means gzip.
  enum Format : int {
    ZlibFormat = 0,  ///< RFC 1950
    GzipFormat = 1   ///< RFC 1952
  };

  /// Decompresses zlib format.
  /// \throws std::bad_alloc
  explicit Decompress(const StructVector<unsigned char>& in);
  /// Decompresses the given format, and only that.
  Decompress(Format format, const StructVector<unsigned char>& in);
  ~Decompress();
  Decompress(const Decompress&) = delete;
  Decompress& operator=(const Decompress&) = delete;

  /// Fills a buffer with the next bytes.
  ///
  /// The checksum stands behind the last byte: only a read that goes beyond the data, or
  /// read(StructVector*), finds it wrong.
  /// \return whether the buffer is full; false for damaged data and when less was left, how
  ///         much of the buffer was filled is then unknown
  bool read(void* buffer, unsigned int length);

  /// Appends all that is left to a vector.
  /// \param out not the vector that is read from
  /// \return whether the end of the stream was reached and its checksum fits; when false, what
  ///         could be decompressed has been appended
  /// \throws std::bad_alloc when the vector cannot grow; it keeps what was appended
  bool read(StructVector<unsigned char>* out);

 private:
  KYR_HIDDEN bool inflateInto(void* room, unsigned length, unsigned* produced, bool* ended);

  const unsigned char* _rest;
  std::size_t _restSize;
  std::unique_ptr<InflateEngine> _engine;
};

}  // namespace Kyr
